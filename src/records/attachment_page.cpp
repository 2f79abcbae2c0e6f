#include "records/attachment_page.h"

#include "base/files.h"
#include "base/text.h"

namespace zelvo {

AttachmentPage::AttachmentPage(Screen& screen, Desk& desk, std::string_view code, std::string_view documents)
    : IDoc(screen, "IDoc", "&Documents", "attachments"),
      IPic(screen, "IPic", "Pictures", "attachments"),
      loadp(screen, "loadp", "Obtain from File.."),
      prevfile(screen, "prevfile", "<"),
      nextFile(screen, "nextFile", ">"),
      openFile(screen, "openFile", "Open"),
      ListView2(screen, "ListView2"),
      lblFile(screen, "lblFile"),
      picFile(screen, "picFile"),
      desk_(desk),
      files_(desk.session.dataFolder, code),
      documents_(documents) {
  IDoc.chosen = true;
  ListView2.columns = {{" File ", 40}};
  prevfile.tip = "Previous file of this record";
  nextFile.tip = "Next file of this record";
  enable(false);
}

void AttachmentPage::enable(bool onRecord) {
  for (Control* control : std::initializer_list<Control*>{&IDoc, &IPic, &loadp})
    control->enabled = onRecord;
  for (Control* control : std::initializer_list<Control*>{&prevfile, &nextFile, &openFile})
    control->enabled = onRecord && !names_.empty();
}

void AttachmentPage::show(std::string_view key) {
  key_ = key;
  list();
}

void AttachmentPage::showKind(AttachmentKind kind) {
  IPic.chosen = kind == AttachmentKind::Picture;
  IDoc.chosen = !IPic.chosen;
  list();
}

void AttachmentPage::list() {
  names_ = files_.names(kind(), key_);
  auto rows = std::make_shared<MemoryRows>();
  for (const std::string& name : names_)
    rows->rows.push_back({name});
  ListView2.rows = rows;
  ListView2.selected.reset();
  ListView2.rowsChanged();
  picFile.caption.clear();
  lblFile.caption = names_.empty() ? "no files" : "";
  enable(!key_.empty());
  if (!names_.empty())
    select(0);
}

void AttachmentPage::select(std::size_t row) {
  ListView2.selected = row;
  lblFile.caption = "File " + std::to_string(row + 1) + " of " + std::to_string(names_.size());
  picFile.caption = kind() == AttachmentKind::Picture ? files_.pathOf(AttachmentKind::Picture, names_[row]) : "";
}

void AttachmentPage::choose() {
  if (ListView2.selected && *ListView2.selected < names_.size())
    select(*ListView2.selected);
}

// Past the last file stays on the last, as with the records.
void AttachmentPage::NextDoc() {
  if (!names_.empty())
    select(std::min(ListView2.selected.value_or(0) + 1, names_.size() - 1));
}

void AttachmentPage::PrevDoc() {
  if (!names_.empty())
    select(std::max<std::size_t>(ListView2.selected.value_or(0), 1) - 1);
}

void AttachmentPage::open() {
  if (ListView2.selected)
    OpenDocument(desk_, files_.pathOf(kind(), names_[*ListView2.selected]));
}

void AttachmentPage::loadp_Click() {
  const bool picture = kind() == AttachmentKind::Picture;
  const FilePicker picker =
      picture ? FilePicker{"Select a picture", "Pictures (*.bmp;*.gif;*.jpg)|*.jpg;*.bmp;*.gif|All Files|*.*", ""}
              : FilePicker{"Select a File", documents_, ""};
  const auto source = desk_.pickers.openFile(picker);
  if (!source)
    return;
  const auto attached = files_.attach(kind(), key_, *source);
  if (!attached)
    return desk_.messages.tell(picture ? " Image" : " File", attached.error().message, Icon::Exclamation);
  list();
  select(names_.size() - 1);
  if (picture)
    desk_.messages.tell(" Image Added to Library", "Scanned image added to collection.");
  else
    desk_.messages.tell(" File Added to Library", fileNameOf(*source) + " added to collection.");
}

}  // namespace zelvo
