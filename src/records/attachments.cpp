#include "records/attachments.h"

#include <algorithm>
#include <filesystem>

#include "base/file_trouble.h"
#include "base/files.h"
#include "base/number.h"
#include "base/open_file.h"
#include "base/text.h"

namespace zelvo {

namespace {

constexpr int kMostFiles = 100000;  // of one record; a folder that refuses every name is not tried for ever

std::string extensionOf(std::string_view path) {
  const std::string name = fileNameOf(path);
  const auto point = name.rfind('.');
  return point == std::string::npos || point == 0 ? "" : name.substr(point);
}

// What a camera could not write has its name and no bytes: better heard of at the desk than at the hearing.
Result<void> copyWhole(std::string_view source, std::string_view path) {
  if (auto copied = copyFile(source, path); !copied)
    return copied;
  std::error_code trouble;
  if (std::filesystem::file_size(std::string(path), trouble) == 0 && !trouble)
    return Error{Trouble::BadInput, "The file " + std::string(source) + " is empty. It was not attached."};
  return {};
}

double numberOf(std::string_view name) {
  const auto mark = name.rfind('~');
  return mark == std::string_view::npos ? 0 : Val(name.substr(mark + 1));
}

}  // namespace

std::string asFileName(std::string_view text) {
  std::string name(trim(text));
  std::ranges::replace_if(
      name, [](char c) { return std::string_view("/\\:*?\"<>|~").find(c) != std::string_view::npos; }, '_');
  return name;
}

std::string Attachments::folder(AttachmentKind kind) const {
  return joinPath(dataFolder_, kind == AttachmentKind::Picture ? "\\pics" : "\\docs");
}

std::string Attachments::stem(std::string_view key) const {
  return code_ + asFileName(key) + "~";
}

std::string Attachments::pathOf(AttachmentKind kind, std::string_view name) const {
  return joinPath(folder(kind), name);
}

std::vector<std::string> Attachments::names(AttachmentKind kind, std::string_view key) const {
  if (trim(key).empty())
    return {};
  auto found = listFiles(folder(kind), stem(key) + "*");
  std::ranges::stable_sort(found, {}, numberOf);
  return found;
}

AttachmentKind kindOfFile(std::string_view path) {
  const std::string extension = lower(extensionOf(path));
  for (const char* picture : {".bmp", ".gif", ".jpg", ".jpeg", ".png"})
    if (extension == picture)
      return AttachmentKind::Picture;
  return AttachmentKind::Document;
}

std::string Attachments::captionPath(AttachmentKind kind, std::string_view name) const {
  return joinPath(folder(kind), "caption " + std::string(name) + ".txt");
}

std::string Attachments::caption(AttachmentKind kind, std::string_view name) const {
  const auto lines = readLines(captionPath(kind, name));
  return lines && !lines->empty() ? lines->front() : "";
}

Result<void> Attachments::setCaption(AttachmentKind kind, std::string_view name, std::string_view words) const {
  if (auto made = makeFolder(folder(kind)); !made)
    return made;
  return writeLines(captionPath(kind, name), {std::string(trim(words))});
}

Result<std::string> Attachments::attach(AttachmentKind kind, std::string_view key, std::string_view source) const {
  if (!FileExists(source))
    return Error{Trouble::NotFound,
                 "The file " + std::string(source) + " cannot be read. Is it a file, and still there?"};
  if (auto made = makeFolder(folder(kind)); !made)
    return made.error();
  for (int number = 1; number <= kMostFiles; ++number) {
    const std::string name = stem(key) + std::to_string(number) + extensionOf(source);
    const std::string path = pathOf(kind, name);
    // The name is taken before anything is copied: only one computer can make the file.
    const OpenFile reserved(path, O_WRONLY | O_CREAT | O_EXCL);
    if (!reserved.isOpen() && reserved.error() == EEXIST)
      continue;
    if (!reserved.isOpen())
      return fileError(FileDeed::Write, path, reserved.error());
    if (auto copied = copyWhole(source, path); !copied) {
      (void)deleteFile(path).ok();
      return copied.error();
    }
    return name;
  }
  return Error{Trouble::NotFound, "This record has too many files. Remove some from " + folder(kind) + "."};
}

Result<std::string> Attachments::attachPrinted(std::string_view key, const PrintedCopy& copy,
                                               std::string_view temporaryFolder) const {
  const std::string whole = joinPath(temporaryFolder, "zelvo-copy" + copy.extension);
  if (const auto written = replaceFile(whole, copy.bytes, Access::OwnerOnly); !written)
    return written.error();
  auto name = attach(AttachmentKind::Document, key, whole);
  static_cast<void>(deleteFile(whole));
  return name;
}

}  // namespace zelvo
