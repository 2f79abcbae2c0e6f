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
      txtCaption(screen, "txtCaption"),
      picFile(screen, "picFile"),
      desk_(desk),
      files_(desk.session.dataFolder, code),
      documents_(documents) {
  IDoc.chosen = true;
  ListView2.columns = {{" File ", 24}, {" Caption ", 26}};
  txtCaption.maxLength = 200;
  txtCaption.tip = "What it shows";
  prevfile.tip = "Previous file of this record";
  nextFile.tip = "Next file of this record";
  enable(false);
}

void AttachmentPage::enable(bool onRecord) {
  for (Control* control : std::initializer_list<Control*>{&IDoc, &IPic, &loadp})
    control->enabled = onRecord;
  for (Control* control : std::initializer_list<Control*>{&prevfile, &nextFile, &openFile, &txtCaption})
    control->enabled = onRecord && !names_.empty();
  txtCaption.locked = !txtCaption.enabled;
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
  showRows();
  ListView2.selected.reset();
  picFile.caption.clear();
  txtCaption.text.clear();
  lblFile.caption = names_.empty() ? "no files" : "";
  enable(!key_.empty());
  if (!names_.empty())
    select(0);
}

void AttachmentPage::showRows() {
  auto rows = std::make_shared<MemoryRows>();
  ListView2.hasPictures = kind() == AttachmentKind::Picture;
  for (const std::string& name : names_) {
    rows->rows.push_back({name, files_.caption(kind(), name)});
    if (ListView2.hasPictures)
      rows->pictures.push_back(files_.pathOf(kind(), name));
  }
  ListView2.rows = rows;
  ListView2.rowsChanged();
}

void AttachmentPage::saveCaption() {
  if (!ListView2.selected || *ListView2.selected >= names_.size())
    return;
  const std::string& name = names_[*ListView2.selected];
  if (trim(txtCaption.text) == files_.caption(kind(), name))
    return;
  if (const auto kept = files_.setCaption(kind(), name, txtCaption.text); !kept)
    return desk_.messages.tell(" Caption", kept.error().message, Icon::Exclamation);
  showRows();
}

void AttachmentPage::select(std::size_t row) {
  ListView2.selected = row;
  lblFile.caption = "File " + std::to_string(row + 1) + " of " + std::to_string(names_.size());
  txtCaption.text = files_.caption(kind(), names_[row]);
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

bool AttachmentPage::attach(AttachmentKind kind, const std::string& source) {
  const auto attached = files_.attach(kind, key_, source);
  if (!attached) {
    desk_.messages.tell(kind == AttachmentKind::Picture ? " Image" : " File", attached.error().message,
                        Icon::Exclamation);
    return false;
  }
  showAttached(kind);
  return true;
}

void AttachmentPage::showAttached(AttachmentKind kind) {
  showKind(kind);
  if (!names_.empty())  // unless somebody took it away again
    select(names_.size() - 1);
}

// One that cannot be attached keeps none of the others back.
void AttachmentPage::drop(const std::vector<std::string>& files) {
  saveCaption();
  std::string troubles;
  for (const std::string& file : files)
    if (const auto attached = files_.attach(kindOfFile(file), key_, file); attached)
      showAttached(kindOfFile(file));
    else
      troubles += attached.error().message + "\n";
  if (!troubles.empty())
    desk_.messages.tell(" Attachments", std::string(trim(troubles)), Icon::Exclamation);
}

void AttachmentPage::loadp_Click() {
  const bool picture = kind() == AttachmentKind::Picture;
  const FilePicker picker =
      picture ? FilePicker{"Select a picture", "Pictures (*.bmp;*.gif;*.jpg)|*.jpg;*.bmp;*.gif|All Files|*.*", ""}
              : FilePicker{"Select a File", documents_, ""};
  const auto source = desk_.pickers.openFile(picker);
  if (!source)
    return;
  if (!attach(kind(), *source))
    return;
  if (picture)
    desk_.messages.tell(" Image Added to Library", "Scanned image added to collection.");
  else
    desk_.messages.tell(" File Added to Library", fileNameOf(*source) + " added to collection.");
}

}  // namespace zelvo
