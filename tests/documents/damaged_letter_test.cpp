// Letters come out of mail programs, off broken disks and through other hands: whatever is wrong with one, the program
// goes on, and what can be read is kept.

#include <gtest/gtest.h>

#include <cstdint>

#include "documents/merge.h"
#include "fixed_pitch.h"

namespace zelvo {
namespace {

const DateTime kNow{{2026, 3, 9}, 0};

// A letter with everything that the office's templates hold, but no codes.
std::string wholeLetter() {
  return "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fcharset0 Times;}{\\f1\\fcharset128 "
         "Mincho;}}\r\n{\\colortbl;\\red9\\green8\\blue7;}{\\stylesheet{\\s1 One;}}{\\info{\\title T}}\\paperw12240"
         "\\paperh15840\\margl1300\\titlepg{\\header\\pard h {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\par}{\\footerf "
         "f}\\pard\\plain\\qc\\sb60\\fs22 Owner: \\'e4\\u8364?{\\b bold\\i\\ul0 }{\\f1\\'93\\'fa}\\tqr\\tldot\\tx5000"
         "\\tab x\\line\\par\\trowd\\trgaph60\\trrh-300\\clvmgf\\clbrdrt\\brdrs\\cellx900\\clmgf\\cellx1800\\clmrg"
         "\\cellx2700\\intbl a\\cell b\\par "
         "c\\cell\\cell\\row\\pard{\\*\\shppict{\\pict\\dibitmap\\picwgoal90\\pichgoal90"
         "\\picscalex50\r\n2800000001000000010000000100180000000000000000000000000000000000000000000000000000ff00}}"
         "{\\footnote n}\\sect\\sbknone{\\pntext\\'b7\\tab}\\bin3 {}\\ end\\par}\r\n";
}

// The work that is done with each letter. What stands on paper must be there, in finite places.
void useLetter(const std::string& rtf, const std::string& why) {
  const PagedDocument paged = layOutPages(readDocument(rtf), inchMargins(), FixedPitch());
  EXPECT_GE(paged.pages.size(), 1u) << why;
  EXPECT_LT(paged.pages.size(), 100u) << why;
  for (const Page& page : paged.pages)
    for (const TextPiece& piece : page.texts)
      EXPECT_TRUE(std::isfinite(piece.x) && std::isfinite(piece.baseline) && !piece.text.empty()) << why;
  EXPECT_EQ(mergeLetter(rtf, {}, kNow, {}), rtf) << why << ": a letter without codes stays byte for byte";
}

TEST(DamagedLetter, CutAnywhereIsReadToItsEnd) {
  const std::string whole = wholeLetter();
  for (std::size_t cut = 0; cut <= whole.size(); ++cut)
    useLetter(whole.substr(0, cut), "cut at " + std::to_string(cut));
}

TEST(DamagedLetter, WithAByteLostOrChangedIsStillALetter) {
  const std::string whole = wholeLetter();
  constexpr std::string_view wrong = "{}\\;9-\0\xFF";
  std::uint32_t dice = 1;
  for (std::size_t at = 0; at < whole.size(); ++at) {
    std::string lost = whole;
    lost.erase(at, 1);
    useLetter(lost, "without byte " + std::to_string(at));
    std::string changed = whole;
    changed[at] = wrong[(dice = dice * 1664525 + 1013904223) >> 29];
    if (changed.find("##") == std::string::npos)
      useLetter(changed, "changed byte " + std::to_string(at));
  }
}

TEST(DamagedLetter, NumbersThatNoPaperHoldsDoNoHarm) {
  for (const char* word :
       {"li",     "ri",     "fi",     "sb",     "sl",    "tx",    "fs",      "f",       "cf",      "highlight",
        "uc",     "u",      "paperw", "paperh", "margl", "margr", "margt",   "margb",   "headery", "footery",
        "deftab", "trleft", "trgaph", "trrh",   "cellx", "brdrw", "clcbpat", "ansicpg", "red",     "bin"})
    for (const char* number : {"-2147483648", "-1", "0", "2147483647", "99999999999999999999"}) {
      const std::string wild = std::string("\\") + word + number;
      const std::string body = "{\\rtf1{\\colortbl;" + wild + ";}" + wild + " a\\tab b\\par\\trowd" + wild +
                               "\\cellx900" + wild + "\\cellx1800" + wild + "\\intbl a" + wild +
                               " \\cell b\\cell\\row}";
      useLetter(body, wild);
    }
  const Document wide = readDocument("{\\rtf1\\trowd\\trleft2147483647\\intbl a\\cell b\\cell\\row}");
  const auto& row = std::get<TableRow>(wide.body.at(0));
  EXPECT_LT(row.left, row.cells.at(0).right);
  EXPECT_LT(row.cells[0].right, row.cells.at(1).right);
}

}  // namespace
}  // namespace zelvo
