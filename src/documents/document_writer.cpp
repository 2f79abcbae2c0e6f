#include "documents/document_writer.h"

#include <algorithm>
#include <array>
#include <optional>

#include "documents/rtf_tables.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

using HeaderList = std::vector<Paragraph> Section::*;

constexpr std::array<std::pair<std::string_view, HeaderList>, 6> kHeaders = {{{"header", &Section::header},
                                                                              {"footer", &Section::footer},
                                                                              {"headerf", &Section::firstHeader},
                                                                              {"footerf", &Section::firstFooter},
                                                                              {"headerl", &Section::leftHeader},
                                                                              {"footerl", &Section::leftFooter}}};

// A length of the paper: the word for the whole letter, and the one for a section.
struct PaperLength {
  std::string_view ofLetter, ofSection;
  std::optional<int> PageSetup::*length;
};

constexpr std::array<PaperLength, 6> kPaperLengths = {{{"paperw", "pgwsxn", &PageSetup::width},
                                                       {"paperh", "pghsxn", &PageSetup::height},
                                                       {"margl", "marglsxn", &PageSetup::left},
                                                       {"margr", "margrsxn", &PageSetup::right},
                                                       {"margt", "margtsxn", &PageSetup::top},
                                                       {"margb", "margbsxn", &PageSetup::bottom}}};

// How the rows of a table inside a header or a cell are written.
struct InnerWords {
  std::string_view cell, end;
  bool shapeBehind = false;
};
constexpr InnerWords kTableInMargin{"\\cell", "\\row\r\n", false};
constexpr InnerWords kTableInCell{"\\nestcell", "\\nestrow}{\\nonesttables\\par}\r\n", true};

class Writer {
 public:
  explicit Writer(const Document& document) : document_(document) {
    tables_.numberOf(TextFont{}.family);  // what a text without a font is given
    sections_.push_back(&document);
    for (const Block& block : document.body)
      if (const auto* next = std::get_if<SectionBreak>(&block))
        sections_.push_back(next->section.get());
  }

  std::string run() {
    writeLetterWords();
    writeSection(document_, nullptr);
    for (std::size_t i = 0; i < document_.body.size(); ++i)
      writeBlock(i);
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0" + tables_.source() + text_ + "}\r\n";
  }

 private:
  // ---- paper and sections

  template <class States>
  bool everySection(const States& states) const {
    return std::all_of(sections_.begin(), sections_.end(), [&](const Section* section) { return states(*section); });
  }

  // What holds of every section is said of the whole letter: older word processors read nothing else.
  void writeLetterWords() {
    for (const PaperLength& paper : kPaperLengths) {
      if (!everySection([&](const Section& section) { return (section.page.*paper.length).has_value(); }))
        continue;
      letter_.*paper.length = document_.page.*paper.length;
      text_ += rtfWord(paper.ofLetter, *(letter_.*paper.length));
    }
    letter_.landscape = everySection([](const Section& section) { return section.page.landscape; });
    text_ += letter_.landscape ? "\\landscape" : "";
    text_ += rtfWord("deftab", document_.defaultTab);
  }

  void writeSection(const Section& section, const Section* before) {
    text_ += "\\sectd";
    for (const PaperLength& paper : kPaperLengths)
      if (const auto& length = section.page.*paper.length; length && length != letter_.*paper.length)
        text_ += rtfWord(paper.ofSection, *length);
    if (section.page.landscape)
      text_ += "\\lndscpsxn";
    text_ += rtfWord("headery", section.page.headerDistance) + rtfWord("footery", section.page.footerDistance);
    if (section.firstPageDiffers)
      text_ += "\\titlepg";
    if (section.leftPagesDiffer && !(before && before->leftPagesDiffer))
      text_ += "\\facingp";
    if (section.firstNumber)
      text_ += rtfWord("pgnstarts", *section.firstNumber) + "\\pgnrestart";
    text_ += "\r\n";
    const Section none;
    for (const auto& [word, list] : kHeaders)
      if (section.*list != (before ? before : &none)->*list)
        writeHeader(word, section.*list);
  }

  void writeHeader(std::string_view word, const std::vector<Paragraph>& paragraphs) {
    text_ += "{\\" + std::string(word) + " ";
    shown_.reset();
    for (std::size_t i = 0; i < paragraphs.size();) {
      if (paragraphs[i].row)
        i = writeInnerRow(paragraphs, i, kTableInMargin);
      else
        writeParagraph(paragraphs[i++], "", "\\par");
    }
    text_ += "}\r\n";
    shown_.reset();
  }

  // The end of a section is the end of its last paragraph.
  void writeSectionBreak(const SectionBreak& next, std::size_t index) {
    const bool ended = index > 0 && !std::holds_alternative<PageBreak>(document_.body[index - 1]) &&
                       !std::holds_alternative<SectionBreak>(document_.body[index - 1]);
    if (!ended)
      writeParagraph({}, "", "");
    text_ += "\\sect";
    const Section* before = section_;
    section_ = next.section.get();
    writeSection(*section_, before);
    if (!next.newPage)
      text_ += "\\sbknone ";
  }

  // ---- text

  void writeBlock(std::size_t index) {
    const Block& block = document_.body[index];
    const bool more = index + 1 < document_.body.size();
    if (const auto* paragraph = std::get_if<Paragraph>(&block))
      writeParagraph(*paragraph, "",
                     more && std::holds_alternative<SectionBreak>(document_.body[index + 1]) ? "" : "\\par");
    else if (const auto* row = std::get_if<TableRow>(&block))
      writeRow(*row, more ? std::get_if<TableRow>(&document_.body[index + 1]) : nullptr);
    else if (const auto* next = std::get_if<SectionBreak>(&block))
      writeSectionBreak(*next, index);
    else
      text_ += "\\page\r\n";
  }

  void writeParagraph(const Paragraph& paragraph, std::string_view place, std::string_view end) {
    text_ += "\\pard" + std::string(place) + rtfLook(paragraph.style, tables_) + " ";
    if (paragraph.runs.empty())
      showLook(paragraph.end);
    for (const Run& run : paragraph.runs)
      writeRun(run);
    (text_ += end) += "\r\n";
  }

  void showLook(const TextStyle& style) {
    if (shown_ == style)
      return;
    shown_ = style;
    text_ += rtfLook(style, tables_);
  }

  void writeRun(const Run& run) {
    if (run.text.empty() && !run.picture && run.live == LiveField::None)
      return;
    showLook(run.style);
    if (run.picture)
      text_ += rtfPicture(*run.picture);
    else if (run.live != LiveField::None)
      text_ += std::string("{\\field{\\*\\fldinst ") + (run.live == LiveField::PageNumber ? "PAGE" : "NUMPAGES") +
               "}{\\fldrslt 1}}";
    else
      text_ += rtfText(run.text);
  }

  // ---- tables

  static bool continuesIn(const Cell& cell, const TableRow* below) {
    return below && std::any_of(below->cells.begin(), below->cells.end(), [&cell](const Cell& other) {
             return other.continuesAbove && other.right == cell.right;
           });
  }

  void writeCellShape(const Cell& cell, const TableRow* below) {
    if (cell.continuesAbove)
      text_ += "\\clvmrg";
    else if (continuesIn(cell, below))
      text_ += "\\clvmgf";
    if (cell.place != VerticalPlace::Top)
      text_ += cell.place == VerticalPlace::Middle ? "\\clvertalc" : "\\clvertalb";
    text_ += rtfBorder("clbrdrt", cell.top, tables_) + rtfBorder("clbrdrl", cell.left, tables_);
    text_ += rtfBorder("clbrdrb", cell.bottom, tables_) + rtfBorder("clbrdrr", cell.rightBorder, tables_);
    if (cell.shade)
      text_ += rtfWord("clcbpat", tables_.numberOf(*cell.shade));
    text_ += rtfWord("cellx", cell.right) + "\r\n";
  }

  void writeRow(const TableRow& row, const TableRow* below) {
    if (row.cells.empty())
      return;
    writeRowShape(row, below);
    for (const Cell& cell : row.cells)
      writeCell(cell);
    text_ += "\\row\r\n";
  }

  void writeRowShape(const TableRow& row, const TableRow* below) {
    text_ += "\\trowd" + rtfWord("trgaph", row.padding) + rtfWord("trleft", row.left);
    if (row.height != 0)
      text_ += rtfWord("trrh", row.height);
    if (row.isHeading)
      text_ += "\\trhdr";
    if (row.alignment == Alignment::Center || row.alignment == Alignment::Right)
      text_ += row.alignment == Alignment::Center ? "\\trqc" : "\\trqr";
    for (std::string_view side : {"l", "r"})
      text_ += "\\trpadd" + std::string(side) + std::to_string(row.padding) + "\\trpaddf" + std::string(side) + "3";
    for (const Cell& cell : row.cells)
      writeCellShape(cell, below);
  }

  // A row of a table inside a header or a cell, from its first paragraph; gives the first one behind it. Inside a cell
  // the shape of a row stands behind its text, where older word processors do not look.
  std::size_t writeInnerRow(const std::vector<Paragraph>& paragraphs, std::size_t first, const InnerWords& words,
                            std::size_t depth = 0) {
    const auto row = innerCell(paragraphs[first], depth).row;
    std::size_t end = first;
    while (end < paragraphs.size() && innerCell(paragraphs[end], depth).row == row)
      ++end;
    const auto below = end < paragraphs.size() ? innerCell(paragraphs[end], depth).row : nullptr;
    if (!words.shapeBehind)
      writeRowShape(*row, below.get());
    for (std::size_t i = first; i < end;) {
      if (innerDepth(paragraphs[i]) > depth + 1)
        i = writeInnerRow(paragraphs, i, kTableInCell, depth + 1);
      else
        writeInnerParagraph(paragraphs, i, words, depth), ++i;
    }
    if (words.shapeBehind) {
      text_ += "{\\*\\nesttableprops";
      writeRowShape(*row, below.get());
    }
    text_ += words.end;
    return end;
  }

  // Rows that look the same are still two.
  static bool sameCell(const Paragraph& a, const Paragraph& b, std::size_t depth) {
    const OuterCell first = innerCell(a, depth), second = innerCell(b, depth);
    return first.row == second.row && first.cell == second.cell;
  }

  void writeInnerParagraph(const std::vector<Paragraph>& paragraphs, std::size_t i, const InnerWords& words,
                           std::size_t depth) {
    const bool endsCell = i + 1 == paragraphs.size() || !sameCell(paragraphs[i], paragraphs[i + 1], depth);
    const std::string place = words.shapeBehind ? "\\intbl\\itap" + std::to_string(depth + 2) : "\\intbl";
    writeParagraph(paragraphs[i], place, endsCell ? words.cell : "\\par");
  }

  void writeCell(const Cell& cell) {
    if (cell.paragraphs.empty())
      writeParagraph({}, "\\intbl", "\\cell");
    for (std::size_t i = 0; i < cell.paragraphs.size();) {
      if (cell.paragraphs[i].row)
        i = writeInnerRow(cell.paragraphs, i, kTableInCell);
      else
        writeParagraph(cell.paragraphs[i], "\\intbl", i + 1 == cell.paragraphs.size() ? "\\cell" : "\\par"), ++i;
    }
    if (!cell.paragraphs.empty() && cell.paragraphs.back().row)
      writeParagraph({}, "\\intbl", "\\cell");
  }

  const Document& document_;
  std::vector<const Section*> sections_;
  const Section* section_ = &document_;
  PageSetup letter_;  // what was said of the whole letter
  RtfTables tables_;
  std::string text_;
  std::optional<TextStyle> shown_;  // the look in force
};

}  // namespace

std::string writeDocument(const Document& document) {
  return Writer(document).run();
}

}  // namespace zelvo
