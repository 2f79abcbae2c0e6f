#include "documents/rtf_insert.h"

#include <optional>
#include <unordered_map>
#include <utility>

#include "base/text.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr std::string_view kParagraph = "\\par ";
constexpr std::string_view kCell = "\\tab ";

struct Look {
  bool bold = false, italic = false, underline = false;
  int size = 24;  // half points
  int font = -1;  // of the letter; -1: the one in force there
};

std::string wordFor(std::string_view word, bool on) {
  return "\\" + std::string(word) + (on ? "" : "0") + " ";
}

class Inserter : public RtfSink {
 public:
  Inserter(const RtfFonts& own, const RtfFonts& letter) : own_(own), letter_(letter) {}

  const std::string& text() const { return text_; }

  void character(char32_t character, RtfSpan, const RtfState& state) override {
    if (state.destination != RtfDestination::Body || state.hidden)
      return;
    text_ += std::exchange(ends_, {});
    look_.font = letterFont(state.font);
    showLook();
    appendRtfCharacter(text_, character);
  }

  void word(const RtfToken& token, const RtfState& state) override {
    if (state.destination == RtfDestination::Picture)
      return takePicture(token);
    if (state.destination != RtfDestination::Body)
      return;
    if (token.word == "par")
      ends_ += kParagraph;
    else if (token.word == "cell")
      ends_ += kCell;
    else if (token.word == "row")
      endRow();
    else if (token.word == "plain")
      look_ = Look{};
    else if (token.word == "b")
      look_.bold = token.on();
    else if (token.word == "i")
      look_.italic = token.on();
    else if (token.word == "ul")
      look_.underline = token.on();
    else if (token.word == "ulnone")
      look_.underline = false;
    else if (token.word == "fs")
      look_.size = token.parameterOr(24);
  }

  void open(const RtfState&) override { outer_.push_back(look_); }
  void close(const RtfState& state) override {
    if (state.destination != RtfDestination::Picture)
      endPicture();
    if (outer_.empty())
      return;
    look_ = outer_.back();
    outer_.pop_back();
  }

  // The town's seal comes along as it stands, but for bytes that a broken file counts wrongly.
  void data(const RtfToken& token, const RtfState&) override {
    if (token.kind == RtfTokenKind::Binary)
      appendRtfHex(text_, token.word);
    else
      text_.append("\r\n").append(token.word);
  }

  void endPicture() {
    if (std::exchange(inPicture_, false))
      text_ += '}';
  }

 private:
  // The letterhead may be a table; the place that it goes to may be in one already, so its text comes without it.
  void endRow() {
    if (ends_.ends_with(kCell))
      ends_.resize(ends_.size() - kCell.size());
    ends_ += kParagraph;
  }

  void takePicture(const RtfToken& token) {
    if (!inPicture_) {
      text_ += std::exchange(ends_, {});
      text_ += '{';
      inPicture_ = true;
    }
    text_ += token.raw;
  }

  // The letter's number of a font of the letterhead; -1: the letter does not have it.
  int letterFont(int number) {
    if (const auto known = letterFonts_.find(number); known != letterFonts_.end())
      return known->second;
    if (letterNames_.empty())
      for (const auto& [letterNumber, font] : letter_.byNumber)
        letterNames_.emplace(fold(font.name), letterNumber);
    const auto own = own_.byNumber.find(number);
    const auto same = own == own_.byNumber.end() ? letterNames_.end() : letterNames_.find(fold(own->second.name));
    return letterFonts_[number] = same == letterNames_.end() ? -1 : same->second;
  }

  // Writes only what differs from what is in force; the first time all of it, since the letter may be bold here.
  void showLook() {
    if (!shown_ || shown_->bold != look_.bold)
      text_ += wordFor("b", look_.bold);
    if (!shown_ || shown_->italic != look_.italic)
      text_ += wordFor("i", look_.italic);
    if (!shown_ || shown_->underline != look_.underline)
      text_ += wordFor("ul", look_.underline);
    if (!shown_ || shown_->size != look_.size)
      text_ += "\\fs" + std::to_string(look_.size) + " ";
    if (look_.font >= 0 && (!shown_ || shown_->font != look_.font))
      text_ += "\\f" + std::to_string(look_.font) + " ";
    shown_ = look_;
  }

  const RtfFonts& own_;
  const RtfFonts& letter_;
  Look look_;
  std::optional<Look> shown_;
  std::vector<Look> outer_;
  std::unordered_map<std::string, int> letterNames_;
  std::unordered_map<int, int> letterFonts_;  // by those of the letterhead
  bool inPicture_ = false;
  std::string ends_;  // of paragraphs and cells, not written yet: the last ones are not
  std::string text_;
};

}  // namespace

std::string rtfInsert(std::string_view richText, const RtfFonts& letterFonts) {
  RtfFonts fonts;
  Inserter inserter(fonts, letterFonts);
  decodeRtf(richText, fonts, inserter);
  inserter.endPicture();
  return "{\\uc1 " + inserter.text() + "}";
}

}  // namespace zelvo
