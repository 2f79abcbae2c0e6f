#include "documents/document.h"

namespace zelvo {

namespace {

void appendRow(std::string& text, const TableRow& row) {
  for (const Cell& cell : row.cells) {
    if (&cell != &row.cells.front())
      text += '\t';
    for (const Paragraph& paragraph : cell.paragraphs) {
      if (&paragraph != &cell.paragraphs.front())
        text += ' ';
      text += plainText(paragraph);
    }
  }
  text += '\n';
}

}  // namespace

bool Run::operator==(const Run& other) const {
  const bool samePicture = picture == other.picture || (picture && other.picture && *picture == *other.picture);
  return samePicture && style == other.style && text == other.text && live == other.live;
}

bool Paragraph::operator==(const Paragraph& other) const {
  const bool sameRow = row == other.row || (row && other.row && *row == *other.row);
  return sameRow && cell == other.cell && style == other.style && runs == other.runs && end == other.end;
}

bool SectionBreak::operator==(const SectionBreak& other) const {
  return newPage == other.newPage && (section == other.section || *section == *other.section);
}

std::string plainText(const Paragraph& paragraph) {
  std::string text;
  for (const Run& run : paragraph.runs)
    text += run.text;
  return text;
}

std::string plainText(const Document& document) {
  std::string text;
  for (const Block& block : document.body) {
    if (const auto* paragraph = std::get_if<Paragraph>(&block))
      text += plainText(*paragraph) + "\n";
    else if (const auto* row = std::get_if<TableRow>(&block))
      appendRow(text, *row);
  }
  return text;
}

}  // namespace zelvo
