#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"

namespace zelvo {

// Paths as the office writes them may use "\" or "/", in any case. Every function here takes them so; on a file system
// that tells upper from lower case, each part of a path that is not there as written is looked for without regard to
// case.

/// Folder and name joined to a path that the system can open: joinPath("/data", "\\phi.txt") finds "/data/Phi.TXT" when
/// that is there.
std::string joinPath(std::string_view folder, std::string_view name);
/// A path as written by the office, in the form that the system opens.
std::string systemPath(std::string_view path);
/// The part before the last separator (empty when there is none, "/" for a file in the root), and the part after it.
std::string folderOf(std::string_view path);
std::string fileNameOf(std::string_view path);
/// A file name made of a title, without the characters that file systems keep for themselves: "Permit 26-1.pdf".
std::string fileNameFor(std::string_view title, std::string_view extension);
/// A folder without separators at its end; the root stays "/".
std::string withoutEndSeparator(std::string_view folder);

/// False for a blank path, a folder, and a file that cannot be opened for reading.
bool FileExists(std::string_view path);
bool folderExists(std::string_view path);
Result<void> makeFolder(std::string_view path);  ///< with the folders above it
/// The names of the files of a folder that match a pattern of "*" and "?", without regard to case, in name order. "*.*"
/// means every file, one without an extension too.
std::vector<std::string> listFiles(std::string_view folder, std::string_view pattern);

/// The bytes of a file, whole. Refuses what is longer than `limit` bytes: such a file is no letter or picture.
Result<std::string> readBytes(std::string_view path, std::size_t limit = 256u << 20);
/// The most that a text file may hold unless its reader says otherwise: settings and lists are a few lines.
inline constexpr std::size_t textLimit = 64u << 20;
/// A text file: UTF-8, else Windows-1252; a byte-order mark is dropped; line ends stay as they are.
Result<std::string> readText(std::string_view path, std::size_t limit = textLimit);
/// The bytes of a text file as text, as readText does it.
std::string textOf(std::string bytes);
/// The lines of a text file, both line-end kinds; a line end at the very end makes no further line.
Result<std::vector<std::string>> readLines(std::string_view path, std::size_t limit = textLimit);
std::vector<std::string> linesOf(std::string_view text);

/// Replaces a file whole or not at all: written beside it, flushed to the disk, renamed. Keeps the old file's rights;
/// OwnerOnly gives a file that none but its owner reads. A file marked read-only is refused.
enum class Access { AsBefore, OwnerOnly };
Result<void> replaceFile(std::string_view path, std::string_view bytes, Access access = Access::AsBefore);
/// As replaceFile, each line ended with CR LF.
Result<void> writeLines(std::string_view path, const std::vector<std::string>& lines, Access access = Access::AsBefore);
/// Adds a line with CR LF at the end of a file, which is made when it is not there. All of the line or nothing.
Result<void> appendLine(std::string_view path, std::string_view line);
/// Copies a file of any size, replacing the other one whole or not at all. A file is not copied onto itself.
Result<void> copyFile(std::string_view from, std::string_view to);
Result<void> deleteFile(std::string_view path);
/// Gives a file another name or folder, on another disk too; a file that has that name already is replaced.
Result<void> renameFile(std::string_view from, std::string_view to);

}  // namespace zelvo
