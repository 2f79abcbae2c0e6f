#include "data/server_folder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <thread>

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/open_file.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr std::size_t longestName = 63;

Result<std::string> firstLine(const std::string& path) {
  const auto lines = readLines(path);
  if (!lines)
    return lines.error();
  return lines->empty() ? std::string() : std::string(trim(lines->front()));
}

bool isSchemaName(std::string_view name) {
  const auto fits = [](char c) { return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_'; };
  return !name.empty() && name.size() <= longestName && (name.front() < '0' || name.front() > '9') &&
         std::all_of(name.begin(), name.end(), fits);
}

std::string newName() {
  std::random_device dice;
  char name[32];
  std::snprintf(name, sizeof name, "zelvo_%08x%08x", dice(), dice());
  return name;
}

/// Another computer may be making the file at this moment: whose file it becomes, theirs or ours, is the name for all.
Result<void> makeName(const std::string& path) {
  OpenFile file(path, O_WRONLY | O_CREAT | O_EXCL);
  if (!file.isOpen())
    return file.error() == EEXIST ? Result<void>() : fileError(FileDeed::Write, path, file.error());
  int error = file.write(newName() + "\r\n");
  error = error ? error : file.flush();
  error = error ? error : file.close();
  return error ? fileError(FileDeed::Write, path, error) : Result<void>();
}

Result<std::string> schemaAt(const std::string& path) {
  if (!std::filesystem::exists(path))
    if (auto made = makeName(path); !made)
      return made.error();
  std::string name;
  for (int attempt = 0; attempt < 50 && name.empty(); ++attempt) {
    if (attempt > 0)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    auto read = firstLine(path);
    if (!read)
      return read;
    name = std::move(*read);
  }
  if (!isSchemaName(name))
    return fileError(FileDeed::Read, path, Trouble::BadInput,
                     "it holds no name of a schema, which is small letters, digits and _",
                     "Write the name there, or restore the file from the backup.");
  return name;
}

}  // namespace

bool keepsOnServer(std::string_view folder) {
  std::error_code ignored;
  return !trim(folder).empty() && std::filesystem::exists(joinPath(folder, serverFile), ignored);
}

bool keepsOnServerNow(std::string_view folder) {
  return ::access((std::string(folder).append("/").append(serverFile)).c_str(), F_OK) == 0;
}

Result<std::string> schemaOf(std::string_view folder) {
  return schemaAt(joinPath(folder, schemaFile));
}

Result<ServerPlace> serverPlace(std::string_view folder) {
  const std::string path = joinPath(folder, serverFile);
  auto connection = firstLine(path);
  if (!connection)
    return connection.error();
  if (connection->empty())
    return fileError(FileDeed::Read, path, Trouble::BadInput, "it names no server",
                     "Write there how to reach it, as host=records.town dbname=zelvo user=clerk.");
  auto schema = schemaOf(folder);
  if (!schema)
    return schema.error();
  return ServerPlace{std::move(*connection), std::move(*schema)};
}

}  // namespace zelvo
