#include "documents/editor/rich_text_box.h"

#include <algorithm>
#include <utility>

#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/document_writer.h"
#include "documents/rtf_reader.h"

namespace zelvo {

namespace {

constexpr std::size_t kMostSteps = 200;

// The user goes on writing where the word before the caret is not ended.
bool inWord(const Paragraph& paragraph, std::size_t caret) {
  const auto before = runsBetween(paragraph, 0, caret);
  return !before.empty() && !before.back().text.empty() && before.back().text.back() != ' ';
}

}  // namespace

RichTextBox::RichTextBox(Screen& itsScreen, std::string_view itsName) : Control(itsScreen, itsName) {
  static_cast<void>(load({}));
}

std::string RichTextBox::shown() const {
  std::string text = plainText(document_);
  while (text.ends_with('\n'))
    text.pop_back();
  return text;
}

Result<void> RichTextBox::load(std::string_view richText) {
  if (!trim(richText).empty() && !isRichText(richText))
    return Error{Trouble::BadInput, "This is no rich text."};
  document_ = readDocument(richText);
  if (paragraphsOf(document_).empty())
    document_.body.push_back(Paragraph{});
  all_ = paragraphsOf(std::as_const(document_));
  fonts_.clear();
  for (const Block& block : document_.body)
    noteFonts(block);
  stored_.store(document_.body);
  source_ = richText;
  selection_ = {};
  typingStyle_.reset();
  undo_.clear();
  redo_.clear();
  typing_ = false;
  renewed_.reset();
  ++revision_;
  return {};
}

std::string RichTextBox::richText() const {
  return changed() ? writeDocument(document_) : source_;
}

void RichTextBox::noteStored() {
  source_ = richText();
  stored_.store(document_.body);
}

Result<void> RichTextBox::take(std::string_view value) {
  edit([value](Document& document, TextRange) {
    setText(document, value);
    return TextRange{};
  });
  return {};
}

void RichTextBox::noteFonts(const Block& block) {
  eachParagraph(block, [this](const Paragraph& paragraph) {
    for (const Run& run : paragraph.runs)
      fonts_.insert(run.style.font.family);
  });
}

// Makes a change, and gives the one that takes it back.
BodyChange RichTextBox::make(BodyChange change) {
  for (const Block& block : change.come)
    noteFonts(block);
  const std::size_t at = change.at;
  const std::size_t come = change.come.size();
  BodyChange back = makeChange(document_.body, std::move(change));
  stored_.noteChange(document_.body, at, come);
  const bool inItsPlace = come == 1 && back.come.size() == 1 && std::holds_alternative<Paragraph>(back.come.front()) &&
                          std::holds_alternative<Paragraph>(document_.body[at]);
  if (!inItsPlace)
    all_ = paragraphsOf(std::as_const(document_));
  return back;
}

void RichTextBox::remember(BodyChange back) {
  undo_.push_back({std::move(back), selection_});
  if (undo_.size() > kMostSteps)
    undo_.erase(undo_.begin());
  redo_.clear();
}

// One line is written on, where the last step began.
bool RichTextBox::goesOnTyping(const BodyChange& change, TextRange caret) const {
  if (!typing_ || undo_.empty() || change.gone != 1 || change.come.size() != 1)
    return false;
  const BodyChange& last = undo_.back().change;
  const std::size_t line = selection_.from.paragraph;
  return last.at == change.at && last.gone == 1 && caret.empty() && selection_.empty() &&
         caret.from.paragraph == line && line < all_.size() && inWord(*all_[line], selection_.from.offset);
}

void RichTextBox::typed(BodyChange change, TextRange caret) {
  trimChange(document_.body, change);
  if (change.empty())
    return selectedByUser(caret);
  const bool goesOn = goesOnTyping(change, caret);
  BodyChange back = make(std::move(change));
  if (!goesOn)
    remember(std::move(back));
  typing_ = true;
  selection_ = within(all_, caret);
  typingStyle_.reset();
}

void RichTextBox::selectedByUser(TextRange selection) {
  const TextRange place = within(all_, selection);
  if (place == selection_)
    return;
  selection_ = place;
  typing_ = false;
  typingStyle_.reset();
}

void RichTextBox::select(TextRange selection) {
  selectedByUser(selection);
  renewed_ = Renewed{};
  ++revision_;
}

void RichTextBox::edit(const std::function<TextRange(Document&, TextRange)>& doing) {
  Document next = document_;
  const TextRange behind = doing(next, selection_);
  BodyChange change = changeBetween(document_.body, next.body);
  renewed_ = Renewed{change.at, change.gone, change.come.size()};
  if (!change.empty())
    remember(make(std::move(change)));
  typing_ = false;
  selection_ = within(all_, behind);
  typingStyle_.reset();
  ++revision_;
}

void RichTextBox::changeStyle(const StyleChange& change) {
  const Paragraph* line = all_.empty() ? nullptr : all_[selection_.from.paragraph];
  if (line && selection_.empty() && lengthOf(*line) > 0) {
    TextStyle next = typingStyle_.value_or(styleAt(*line, selection_.from.offset));
    change(next);
    typingStyle_ = next;
    renewed_ = Renewed{};
    ++revision_;
    return;
  }
  edit([&change](Document& document, TextRange range) {
    zelvo::changeStyle(document, range, change);
    return range;
  });
}

void RichTextBox::align(Alignment alignment) {
  edit([alignment](Document& document, TextRange range) {
    alignParagraphs(document, range, alignment);
    return range;
  });
}

void RichTextBox::insert(const std::vector<Paragraph>& paragraphs) {
  edit([&paragraphs](Document& document, TextRange range) {
    const TextPlace behind = replaceRange(document, range, paragraphs);
    return TextRange{behind, behind};
  });
}

void RichTextBox::insert(std::string_view text) {
  edit([&](Document& document, TextRange range) {
    const TextPlace behind = replaceText(document, range, text, typingStyle_ ? &*typingStyle_ : nullptr);
    return TextRange{behind, behind};
  });
}

SelectionLook RichTextBox::look() const {
  SelectionLook look = lookOf(all_, selection_);
  if (!typingStyle_)
    return look;
  look.family = typingStyle_->font.family;
  look.points = typingStyle_->font.points;
  look.bold = typingStyle_->font.bold;
  look.italic = typingStyle_->font.italic;
  look.underline = typingStyle_->underline;
  return look;
}

void RichTextBox::exchange(std::vector<Step>& from, std::vector<Step>& to) {
  if (from.empty())
    return;
  Step step = std::move(from.back());
  from.pop_back();
  renewed_ = Renewed{step.change.at, step.change.gone, step.change.come.size()};
  to.push_back({make(std::move(step.change)), selection_});
  selection_ = step.selection;
  typing_ = false;
  typingStyle_.reset();
  ++revision_;
}

void RichTextBox::undo() {
  exchange(undo_, redo_);
}

void RichTextBox::redo() {
  exchange(redo_, undo_);
}

}  // namespace zelvo
