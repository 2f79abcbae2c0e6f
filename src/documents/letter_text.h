#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "documents/rtf_decoder.h"

namespace zelvo {

/// The readable text of a rich-text letter, in which texts are replaced: every paragraph wherever it stands, each of
/// its characters knowing the part of the file that makes it. What is not replaced stays byte for byte.
///
/// The letter must outlive this. Replacing takes time proportional to the text that may hold codes. Values that hold
/// codes of one another could fill a letter without end, so what is put in is bounded: see isFull().
class LetterText : private RtfSink {
 public:
  explicit LetterText(std::string_view rtf);

  bool has(std::string_view code) const;
  /// Replaces the code everywhere it stands; what was put in is not searched again. It takes the format of the code's
  /// first character. Tells whether there was any.
  bool replace(std::string_view code, std::string_view value);
  /// The same with a piece of rich-text source, which is put in as it stands.
  bool replaceWithSource(std::string_view code, std::string_view source);

  /// Whether a value found no more room. Its code and those behind it stand as they were then.
  bool isFull() const { return full_; }

  const RtfFonts& fonts() const { return fonts_; }
  /// The letter as it stands now.
  std::string source() const;

 private:
  // A character of the letter, or as many as were put in at one place: then begin and end are that place.
  struct Origin {
    std::uint32_t begin = 0, end = 0;
    std::uint32_t count = 1;
    std::uint32_t piece = 0;  // of sources_, from 1; 0: the characters themselves
    std::uint8_t standIns = 1;
    bool inserted = false;
  };
  struct Paragraph {
    std::u32string text;
    std::vector<Origin> origins;
    void add(std::u32string_view characters, Origin origin);
  };
  class Walk;
  struct Edit {
    std::size_t position, removeTo;
    std::string text;
  };

  void character(char32_t character, RtfSpan span, const RtfState& state) override;
  void word(const RtfToken& token, const RtfState& state) override;
  bool replaceAllWith(std::string_view code, const std::u32string& value, std::uint32_t piece);
  void replaceIn(Paragraph& paragraph, std::u32string_view code, const std::u32string& value, std::uint32_t piece);
  bool takeRoom(const std::u32string& value, std::uint32_t piece);
  static bool mayHoldCodes(const Paragraph& paragraph);
  void addInsertions(const Paragraph& paragraph, std::vector<Edit>& edits) const;
  std::vector<Edit> edits() const;

  std::string_view rtf_;
  RtfFonts fonts_;
  std::vector<Paragraph> paragraphs_;
  std::map<std::uint32_t, std::size_t> openParagraphs_;  // by flow
  std::vector<RtfSpan> removed_;
  std::vector<std::string> sources_;
  std::size_t characters_ = 0, sourceBytes_ = 0;  // that were put in
  bool full_ = false;
};

}  // namespace zelvo
