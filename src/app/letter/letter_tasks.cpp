#include "app/letter/letter_tasks.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ctime>
#include <filesystem>

#include "app/letter/letter_file.h"
#include "base/files.h"
#include "documents/document_reader.h"

namespace zelvo {

namespace {

DateTime computersTime() {
  const std::time_t moment = std::time(nullptr);
  std::tm local{};
  ::localtime_r(&moment, &local);
  return {{local.tm_year + 1900, local.tm_mon + 1, local.tm_mday},
          local.tm_hour * 3600 + local.tm_min * 60 + std::min(local.tm_sec, 59)};
}

std::string besideThisProgram(const char* name) {
  std::error_code unknown;
  const auto program = std::filesystem::read_symlink("/proc/self/exe", unknown);
  return unknown ? name : (program.parent_path() / name).string();
}

}  // namespace

Result<std::string> textOfLetter(const LetterCommand& command) {
  const auto rtf = readLetterFile(command.file);
  if (!rtf)
    return rtf.error();
  return plainText(readDocument(*rtf));
}

Result<void> mergeIntoFile(const LetterCommand& command) {
  const auto rtf = readLetterFile(command.file);
  if (!rtf)
    return rtf.error();
  const auto pictures = [&command](std::string_view name) -> std::optional<std::string> {
    auto bytes = readBytes(joinPath(command.programFolder, name));
    return bytes ? std::optional(std::move(*bytes)) : std::nullopt;
  };
  const DateTime now = command.now.value_or(computersTime());
  const auto merged = mergeLetter(*rtf, command.values, now, pictures);
  return merged ? replaceFile(command.out, *merged) : merged.error();
}

Error startPages(const LetterCommand& command) {
  const std::string program = besideThisProgram("zelvo-letter-pages");
  ::execl(program.c_str(), program.c_str(), command.file.c_str(), command.out.c_str(), nullptr);
  if (errno == ENOENT)
    return {Trouble::NotFound,
            "This build has no windows, and without them no fonts to lay a letter out with. Use one that was built "
            "with the windows."};
  return {Trouble::Failed, "\"" + program + "\" could not be started: " + std::strerror(errno) + "."};
}

}  // namespace zelvo
