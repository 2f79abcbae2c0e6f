#include "base/files.h"

#include <sys/stat.h>

#include <algorithm>

#include "base/file_trouble.h"
#include "base/open_file.h"
#include "base/text.h"

namespace zelvo {

namespace {

Error tooLong(const std::string& path, std::size_t limit) {
  return fileError(FileDeed::Read, path, Trouble::BadInput,
                   "it is longer than the " + std::to_string(limit) + " bytes that such a file may have",
                   "Check that it is the right file.");
}

/// Reads in growing pieces, never more than one byte beyond the limit, whatever length the system claims. Behind a
/// piece that was not filled mostly nothing is left: no room is made for more than that takes.
Result<std::string> readUpTo(OpenFile& file, const std::string& path, std::size_t limit) {
  constexpr std::size_t firstPiece = 1u << 14, largestPiece = 1u << 24, restPiece = 1u << 9;
  std::string bytes;
  std::size_t taken = 1;
  for (std::size_t piece = firstPiece; taken > 0 && bytes.size() <= limit;) {
    const std::size_t before = bytes.size();
    bytes.resize(before + std::min(piece - 1, limit - before) + 1);
    const int error = file.read(bytes.data() + before, bytes.size() - before, taken);
    if (error != 0)
      return fileError(FileDeed::Read, path, error);
    piece = before + taken == bytes.size() ? std::min(piece * 2, largestPiece) : restPiece;
    bytes.resize(before + taken);
  }
  if (bytes.size() > limit)
    return tooLong(path, limit);
  return bytes;
}

}  // namespace

Result<std::string> readBytes(std::string_view path, std::size_t limit) {
  const std::string name = systemPath(path);
  OpenFile file(name, O_RDONLY);
  if (!file.isOpen())
    return fileError(FileDeed::Read, name, file.error());
  return readUpTo(file, name, limit);
}

std::string textOf(std::string bytes) {
  if (!isUtf8(bytes))
    return fromWindows1252(bytes);
  if (bytes.starts_with("\xEF\xBB\xBF"))
    bytes.erase(0, 3);
  return bytes;
}

Result<std::string> readText(std::string_view path, std::size_t limit) {
  auto bytes = readBytes(path, limit);
  if (!bytes)
    return bytes;
  return textOf(std::move(*bytes));
}

Result<std::vector<std::string>> readLines(std::string_view path, std::size_t limit) {
  const auto text = readText(path, limit);
  if (!text)
    return text.error();
  return linesOf(*text);
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r'))
      line.remove_suffix(1);
    lines.emplace_back(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return lines;
}

}  // namespace zelvo
