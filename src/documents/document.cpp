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
  return OuterCell{row, cell} == OuterCell{other.row, other.cell} && style == other.style && runs == other.runs &&
         end == other.end;
}

bool OuterCell::operator==(const OuterCell& other) const {
  return cell == other.cell && (row == other.row || (row && other.row && *row == *other.row));
}

std::size_t innerDepth(const Paragraph& paragraph) {
  std::size_t depth = 0;
  for (const TableRow* row = paragraph.row.get(); row; row = row->outer.row.get())
    ++depth;
  return depth;
}

OuterCell innerCell(const Paragraph& paragraph, std::size_t depth) {
  const std::size_t all = innerDepth(paragraph);
  if (depth >= all)
    return {};
  OuterCell cell{paragraph.row, paragraph.cell};
  for (std::size_t up = all - 1; up > depth; --up)
    cell = OuterCell(cell.row->outer);
  return cell;
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
