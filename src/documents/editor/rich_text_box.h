#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "documents/editor/body_change.h"
#include "documents/editor/text_edits.h"
#include "form/control.h"

namespace zelvo {

/// A letter that the user writes in. It holds the whole letter, with what no window shows (headers, paper, leaders of
/// tabs), so that all of that is there again when the letter is stored; a letter that nobody changed is stored byte for
/// byte as it was. As a text it is the words of the letter; a text that is set takes the place of all of them.
class RichTextBox : public Control {
 public:
  RichTextBox(Screen& screen, std::string_view name);
  ControlKind kind() const override { return ControlKind::RichText; }
  std::string shown() const override;

  /// Shows another letter. An empty text is an empty letter; one that is no rich text is refused and changes nothing.
  Result<void> load(std::string_view richText);
  /// The letter as it is stored.
  std::string richText() const;
  bool changed() const { return stored_.differs(); }
  /// The letter is stored as it stands now.
  void noteStored();

  const Document& document() const { return document_; }
  /// The families of all letters that stood in it since it was loaded.
  const std::set<std::string>& fonts() const { return fonts_; }
  TextRange selection() const { return selection_; }
  /// Goes up whenever the letter or its selection became another one otherwise than by the user's typing.
  std::uint64_t revision() const { return revision_; }
  /// What the last revision changed: these blocks of the body are new, in the place of `gone` others. Nothing when
  /// the letter is another one.
  struct Renewed {
    std::size_t at = 0, gone = 0, come = 0;
  };
  const std::optional<Renewed>& renewed() const { return renewed_; }
  /// The style in which the next letter is written, when it was chosen with nothing selected.
  const std::optional<TextStyle>& typingStyle() const { return typingStyle_; }

  // By a face, as the user types and moves about.
  void typed(BodyChange change, TextRange caret);
  void selectedByUser(TextRange selection);

  // By the screen, for its buttons.
  void select(TextRange selection);
  void changeStyle(const StyleChange& change);
  void align(Alignment alignment);
  void insert(const std::vector<Paragraph>& paragraphs);
  void insert(std::string_view text);
  SelectionLook look() const;
  bool canUndo() const { return !undo_.empty(); }
  bool canRedo() const { return !redo_.empty(); }
  void undo();
  void redo();

 protected:
  Result<void> take(std::string_view value) override;

 private:
  // A step back or forth: what makes the letter what it was.
  struct Step {
    BodyChange change;
    TextRange selection;
  };
  BodyChange make(BodyChange change);
  void noteFonts(const Block& block);
  void remember(BodyChange back);
  void edit(const std::function<TextRange(Document&, TextRange)>& doing);
  void exchange(std::vector<Step>& from, std::vector<Step>& to);
  bool goesOnTyping(const BodyChange& change, TextRange caret) const;

  Document document_;
  Paragraphs all_;  // of the document
  std::set<std::string> fonts_;
  StoredBody stored_;
  std::string source_;  // of what is stored
  TextRange selection_;
  std::optional<TextStyle> typingStyle_;
  std::vector<Step> undo_, redo_;
  bool typing_ = false;  // the last step is words that are being typed
  std::uint64_t revision_ = 0;
  std::optional<Renewed> renewed_;
};

}  // namespace zelvo
