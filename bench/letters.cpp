#include <array>
#include <random>

#include "base/files.h"
#include "documents/document_writer.h"
#include "measures.h"

namespace zelvo::bench {

namespace {

constexpr std::array<std::string_view, 24> kWords = {
    "the",         "owner",     "of",      "this",    "building",   "shall",  "file",   "an",
    "application", "for",       "permit",  "with",    "department", "within", "thirty", "days",
    "notice",      "violation", "located", "section", "code",       "office", "town",   "inspection"};

/// Writes the letters of an office: a letterhead in a table, the addressee, paragraphs of two looks, a table of what
/// was found, a page number.
class LetterMaker {
 public:
  explicit LetterMaker(unsigned seed) : random_(seed) {}

  Document letter() {
    Document letter;
    letter.page.width = 12240;
    letter.page.height = 15840;
    letter.page.left = letter.page.right = letter.page.top = letter.page.bottom = 1440;
    letter.footer.push_back(paragraph({plain("Page "), {{}, {}, LiveField::PageNumber, nullptr}}));
    letter.body.emplace_back(row({"%mh", "%dl"}));
    for (const char* line : {"%nm", "%ad", "%zp", "", "Re: %01, permit %02, parcel %03"})
      letter.body.emplace_back(paragraph({plain(line)}));
    for (int i = 0; i < 28; ++i)
      letter.body.emplace_back(sentences());
    for (int i = 0; i < 12; ++i)
      letter.body.emplace_back(row({"%04", words(6)}));
    letter.body.emplace_back(paragraph({plain("Yours truly, %me")}));
    return letter;
  }

 private:
  static Run plain(std::string text) { return {{}, std::move(text), LiveField::None, nullptr}; }

  static Paragraph paragraph(std::vector<Run> runs) {
    Paragraph result;
    result.runs = std::move(runs);
    result.style.after = 120;
    return result;
  }

  static TableRow row(const std::vector<std::string>& texts) {
    TableRow row;
    row.padding = 108;
    for (const std::string& text : texts) {
      Cell cell;
      cell.right = row.cells.empty() ? 3000 : 9300;
      cell.top = cell.bottom = cell.left = cell.rightBorder = {10, {}};
      cell.paragraphs.push_back(paragraph({plain(text)}));
      row.cells.push_back(std::move(cell));
    }
    return row;
  }

  std::string words(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
      text.append(kWords[random_() % kWords.size()]).append(" ");
    return text;
  }

  Paragraph sentences() {
    Paragraph result = paragraph({});
    result.style.alignment = Alignment::Justify;
    result.style.first = 720;
    for (int i = 0; i < 4; ++i) {
      Run run = plain(words(i % 2 == 0 ? 12 : 3));
      run.style.font.bold = i % 2 != 0;
      result.runs.push_back(std::move(run));
    }
    return result;
  }

  std::mt19937 random_;
};

}  // namespace

Result<std::string> makeLetters(Arguments arguments) {
  const auto count = static_cast<unsigned>(std::atoi(arguments[1].c_str()));
  std::size_t bytes = 0;
  for (unsigned i = 0; i < count; ++i) {
    const std::string letter = writeDocument(LetterMaker(i).letter());
    bytes += letter.size();
    if (auto written = replaceFile(joinPath(arguments[0], std::to_string(1000 + i) + ".rtf"), letter); !written)
      return written.error();
  }
  return std::to_string(count) + " letters of " + std::to_string(bytes / std::max(1u, count)) + " bytes";
}

}  // namespace zelvo::bench
