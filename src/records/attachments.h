#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "form/ports.h"

namespace zelvo {

/// A text as a file can be named; what no file name can hold is "_" in it.
std::string asFileName(std::string_view text);

enum class AttachmentKind { Document, Picture };
/// What a file is, by the end of its name.
AttachmentKind kindOfFile(std::string_view path);

/// The documents and pictures of one record. They lie in "\docs\" and "\pics\" of the data folder, where every computer
/// of the office finds them, named by the code of the kind of record, the record's key, "~" and a running number, with
/// the file's own extension: "0125-134~1.pdf".
class Attachments {
 public:
  /// `code` has two digits: "01" for building permits.
  Attachments(std::string_view dataFolder, std::string_view code) : dataFolder_(dataFolder), code_(code) {}

  /// The record's files of one kind, by name in the order of their numbers.
  std::vector<std::string> names(AttachmentKind kind, std::string_view key) const;
  std::string pathOf(AttachmentKind kind, std::string_view name) const;
  /// What a file is said to show, and to say it. The words lie beside the file, in
  /// "caption 021~1.jpg.txt", which is no file of the record.
  std::string caption(AttachmentKind kind, std::string_view name) const;
  Result<void> setCaption(AttachmentKind kind, std::string_view name, std::string_view words) const;
  /// Copies a file to the record, under the first number that is free; gives its new name. Of two computers that attach
  /// at the same moment each gets a number of its own. The error says why it could not be copied, or that it is empty;
  /// then nothing is left.
  Result<std::string> attach(AttachmentKind kind, std::string_view key, std::string_view source) const;
  /// Keeps what was printed among the documents of the record; gives its new name.
  Result<std::string> attachPrinted(std::string_view key, const PrintedCopy& copy,
                                    std::string_view temporaryFolder) const;

 private:
  std::string folder(AttachmentKind kind) const;
  std::string captionPath(AttachmentKind kind, std::string_view name) const;
  std::string stem(std::string_view key) const;

  std::string dataFolder_;
  std::string code_;
};

}  // namespace zelvo
