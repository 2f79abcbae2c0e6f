#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "documents/double_byte.h"
#include "documents/rtf_reader.h"

namespace zelvo {

/// Where the text of a group goes.
enum class RtfDestination : std::uint8_t {
  Nothing,  ///< read over: tables of styles, unknown groups, the second version of a picture
  Body,
  Header,
  Footer,
  FirstHeader,
  FirstFooter,
  LeftHeader,
  LeftFooter,
  Aside,  ///< notes and text frames
  FontTable,
  ColourTable,
  FieldInstruction,
  Picture
};

/// Whether people read what stands there.
bool isText(RtfDestination destination);

/// What the file says of a font. `codePage` is the one in which its bytes are to be read.
struct RtfFont {
  std::string name;
  int codePage = 0;     ///< 0: the page of the document
  bool symbol = false;  ///< its characters are signs, not letters
};

struct RtfFonts {
  std::map<int, RtfFont> byNumber;
  int standard = 0;  ///< what text without a font of its own takes
};

/// What holds at a place of the file, as far as reading its characters goes.
struct RtfState {
  RtfDestination destination = RtfDestination::Nothing;
  RtfDestination outer = RtfDestination::Nothing;  ///< of the group around a text that is given twice
  std::uint32_t flow = 0;  ///< changes with each header, footer, note and frame: their texts do not run together
  int font = 0;
  int codePage = 1252;
  int uc = 1;  ///< how many characters behind a \u stand in for it
  bool hidden = false;
};

/// A part of the file, from byte to byte.
struct RtfSpan {
  std::size_t begin = 0, end = 0;
};

/// Takes what a rich-text file says, in order. Nothing comes from groups that are read over.
class RtfSink {
 public:
  virtual ~RtfSink() = default;
  /// A character and the part of the file that makes it, stand-ins included. Line breaks come as "\n".
  virtual void character(char32_t character, RtfSpan span, const RtfState& state) = 0;
  /// Every word that is no character, after it was taken into the state; a paragraph end is always "par".
  virtual void word(const RtfToken& token, const RtfState& state) = 0;
  virtual void open(const RtfState&) {}
  virtual void close(const RtfState&) {}                  ///< with the state after the group
  virtual void data(const RtfToken&, const RtfState&) {}  ///< of a picture
};

/// Reads a rich-text file to its end, however broken or deep, in time proportional to its length. `fonts` is filled as
/// the font table is read.
void decodeRtf(std::string_view rtf, RtfFonts& fonts, RtfSink& sink);

}  // namespace zelvo
