#include "documents/letter.h"

#include "base/files.h"
#include "documents/rtf_reader.h"

namespace zelvo {

namespace {

Error noTemplate(std::string_view name, std::string_view folder) {
  return {Trouble::NotFound, "The letter \"" + fileNameOf(name) + "\" is not in the forms folder \"" +
                                 std::string(folder) +
                                 "\".\nPut it there, or set the forms folder in the preferences, and print again."};
}

Error noRichText(std::string_view name, std::string_view folder) {
  return {Trouble::BadInput,
          "The letter \"" + fileNameOf(name) + "\" in the forms folder \"" + std::string(folder) +
              "\" is no rich text.\nOpen it in a word processor, save it as rich text (.rtf), and print again."};
}

Result<std::string> readTemplate(std::string_view folder, std::string_view name) {
  const std::string path = joinPath(folder, name);
  if (!FileExists(path))
    return noTemplate(name, folder);
  Result<std::string> rtf = readBytes(path);
  if (rtf && !isRichText(*rtf))
    return noRichText(name, folder);
  return rtf;
}

}  // namespace

Result<std::string> LetterPrinter::read(std::string_view templateName) const {
  return readTemplate(desk_.session.formsFolder, templateName);
}

Result<std::string> LetterPrinter::fill(std::string_view rtf) const {
  const Session& session = desk_.session;
  MergeContext values = context;
  if (values.letterhead.empty())
    values.letterhead = session.reportHeader;
  const auto pictures = [&session](std::string_view name) -> std::optional<std::string> {
    auto bytes = readBytes(joinPath(session.programFolder, name));
    return bytes ? std::optional(std::move(*bytes)) : std::nullopt;
  };
  return mergeLetter(rtf, values, desk_.clock.now(), pictures);
}

Result<std::string> LetterPrinter::keep(std::string_view rtf) const {
  const std::string path = joinPath(desk_.session.programFolder, "\\tmp.rtf");
  if (auto written = replaceFile(path, rtf); !written)
    return written.error();
  return path;
}

Result<std::string> LetterPrinter::merge(std::string_view templateName) {
  const Result<std::string> rtf = read(templateName);
  const Result<std::string> filled = rtf ? fill(*rtf) : rtf;
  return filled ? keep(*filled) : filled;
}

Result<void> LetterPrinter::printText(std::string_view rtf, std::string_view title, const KeepCopy& copy) {
  const Result<std::string> path = keep(rtf);
  if (!path)
    return path.error();
  return deliver(desk_, {{std::string(title), *path, desk_.session.print}, copy});
}

Result<void> LetterPrinter::openText(std::string_view rtf, std::string_view title, const KeepCopy& copy) {
  const Result<std::string> path = keep(rtf);
  if (!path)
    return path.error();
  PrintOptions options = desk_.session.print;
  options.viewFirst = options.keepCopy = true;
  options.preview = false;
  return deliver(desk_, {{std::string(title), *path, options}, copy});
}

Result<void> LetterPrinter::print(std::string_view templateName, std::string_view title, const KeepCopy& copy) {
  const Result<std::string> rtf = read(templateName);
  const Result<std::string> filled = rtf ? fill(*rtf) : rtf;
  return filled ? printText(*filled, title, copy) : Result<void>(filled.error());
}

}  // namespace zelvo
