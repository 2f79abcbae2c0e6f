#include "documents/editor/rich_text_box.h"

#include <algorithm>

#include "base/text.h"
#include "documents/document_reader.h"
#include "documents/document_writer.h"
#include "documents/rtf_reader.h"

namespace zelvo {

namespace {

constexpr std::size_t kMostSteps = 200;

// The user goes on writing where the word before the caret is not ended.
bool inWord(const Document& document, TextPlace caret) {
  const Paragraph& paragraph = *paragraphsOf(document)[caret.paragraph];
  const auto before = runsBetween(paragraph, 0, caret.offset);
  return !before.empty() && !before.back().text.empty() && before.back().text.back() != ' ';
}

}  // namespace

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
  stored_ = document_;
  source_ = richText;
  selection_ = {};
  typingStyle_.reset();
  undo_.clear();
  redo_.clear();
  typing_ = false;
  ++revision_;
  return {};
}

std::string RichTextBox::richText() const {
  return changed() ? writeDocument(document_) : source_;
}

void RichTextBox::noteStored() {
  source_ = richText();
  stored_ = document_;
}

Result<void> RichTextBox::take(std::string_view value) {
  edit([value](Document& document, TextRange) {
    setText(document, value);
    return TextRange{};
  });
  return {};
}

void RichTextBox::remember() {
  undo_.push_back({document_, selection_});
  if (undo_.size() > kMostSteps)
    undo_.erase(undo_.begin());
  redo_.clear();
}

bool RichTextBox::goesOnTyping(const Document& next, TextRange caret) const {
  const bool sameLine = caret.empty() && selection_.empty() && caret.from.paragraph == selection_.from.paragraph &&
                        paragraphsOf(next).size() == paragraphsOf(document_).size();
  return typing_ && sameLine && inWord(document_, selection_.from);
}

void RichTextBox::typed(Document document, TextRange caret) {
  if (document == document_)
    return selectedByUser(caret);
  const TextRange place = within(document, caret);
  if (!goesOnTyping(document, place))
    remember();
  typing_ = true;
  document_ = std::move(document);
  selection_ = place;
  typingStyle_.reset();
}

void RichTextBox::selectedByUser(TextRange selection) {
  const TextRange place = within(document_, selection);
  if (place == selection_)
    return;
  selection_ = place;
  typing_ = false;
  typingStyle_.reset();
}

void RichTextBox::select(TextRange selection) {
  selectedByUser(selection);
  ++revision_;
}

void RichTextBox::edit(const std::function<TextRange(Document&, TextRange)>& doing) {
  remember();
  typing_ = false;
  selection_ = within(document_, doing(document_, within(document_, selection_)));
  typingStyle_.reset();
  ++revision_;
}

void RichTextBox::changeStyle(const StyleChange& change) {
  const auto all = paragraphsOf(document_);
  if (selection_.empty() && !all.empty() && lengthOf(*all[selection_.from.paragraph]) > 0) {
    TextStyle next = typingStyle_.value_or(styleAt(*all[selection_.from.paragraph], selection_.from.offset));
    change(next);
    typingStyle_ = next;
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
  SelectionLook look = lookOf(document_, selection_);
  if (!typingStyle_)
    return look;
  look.family = typingStyle_->font.family;
  look.points = typingStyle_->font.points;
  look.bold = typingStyle_->font.bold;
  look.italic = typingStyle_->font.italic;
  look.underline = typingStyle_->underline;
  return look;
}

void RichTextBox::exchange(std::vector<State>& from, std::vector<State>& to) {
  if (from.empty())
    return;
  to.push_back({std::move(document_), selection_});
  document_ = std::move(from.back().document);
  selection_ = from.back().selection;
  from.pop_back();
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
