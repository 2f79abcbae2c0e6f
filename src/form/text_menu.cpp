#include "form/text_menu.h"

#include <algorithm>

#include "base/files.h"
#include "base/text.h"
#include "form/screen.h"

namespace zelvo {

namespace {

constexpr TextMenuEntry kEntries[] = {
    {"mcopy", "Copy"}, {"mpaste", "Paste"}, {"loadp", "Obtain from File.."}, {"savep", "Save to File.."}};

constexpr std::string_view kTextFiles = "Text Files (*.txt)|*.txt|All Files (*.*)|*.*";

Result<void> refuseUnwritable(const TextBox& box) {
  if (box.enabled && !box.locked)
    return {};
  return Error{Trouble::ReadOnly, "This text cannot be changed at the moment. Begin to edit the record first."};
}

Result<void> put(TextBox& box, const std::string& text) {
  if (auto refused = refuseUnwritable(box); !refused)
    return refused;
  return box.screen().userSets(box, box.manyLines ? text : replaceAll(trimRight(text), "\n", " "));
}

Result<void> obtain(Desk& desk, TextBox& box) {
  if (auto refused = refuseUnwritable(box); !refused)
    return refused;
  const auto path = desk.pickers.openFile({"Obtain from File", std::string(kTextFiles), {}});
  if (!path)
    return {};
  const auto text = readText(*path);
  if (!text)
    return text.error();
  if (text->find('\0') != std::string::npos || text->starts_with("{\\rtf"))
    return Error{Trouble::BadInput, "The file \"" + *path + "\" holds no plain text. Save it as a text file first."};
  return put(box, join(linesOf(*text), "\n"));
}

Result<void> save(Desk& desk, const TextBox& box) {
  const auto path = desk.pickers.saveFile({"Save to File", std::string(kTextFiles), {}}, "notes.txt");
  return path ? writeLines(*path, linesOf(box.text)) : Result<void>();
}

}  // namespace

std::span<const TextMenuEntry> textMenu() {
  return kEntries;
}

bool isTextMenuEntry(std::string_view name) {
  return std::ranges::find(kEntries, name, &TextMenuEntry::name) != std::ranges::end(kEntries);
}

Result<void> pickFromTextMenu(Desk& desk, TextBox& box, std::string_view entry) {
  if (entry == "mcopy" && !box.password)
    return desk.desktop.setClipboard(box.text), Result<void>();
  if (entry == "mpaste")
    return put(box, box.text + desk.desktop.clipboard());
  if (entry == "loadp")
    return obtain(desk, box);
  if (entry == "savep" && !box.password)
    return save(desk, box);
  return Error{Trouble::BadInput, "A password is neither copied nor saved."};
}

}  // namespace zelvo
