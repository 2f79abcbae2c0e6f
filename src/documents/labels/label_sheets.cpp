#include "documents/labels/label_sheets.h"

#include <algorithm>
#include <cmath>

#include "base/files.h"
#include "base/text.h"
#include "documents/labels/label_fit.h"
#include "documents/labels/label_font.h"
#include "documents/labels/label_places.h"
#include "documents/merge.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr double kTwipsPerInch = 1440;
const TextFont kLabelFont{"Arial", 11, false, false};
// Sheets are cut and drawn in with a little play, so that no text comes near an edge; on small labels less.
constexpr int kSideRoom = 160;
constexpr int kEdgeRoom = 72;
constexpr double kMostOfHeight = 0.08;
// What printers leave white at the edge of the paper.
constexpr int kPaperEdge = 144;
// So high is the empty paragraph that ends a document behind its last row.
constexpr int kEndParagraph = 40;

int twips(double inches) {
  return static_cast<int>(std::lround(inches * kTwipsPerInch));
}

class SheetWriter {
 public:
  SheetWriter(const SheetGrid& grid, const FontMeasure& measure) : grid_(grid), places_(grid), measure_(measure) {}

  LabelSheets write(const std::vector<LabelText>& labels, SheetPlace start) {
    if (labels.empty() || places_.count() == 0)
      return {};
    const int used = places_.before(start) % places_.count();
    const int end = used + static_cast<int>(labels.size());
    writeHead();
    for (int first = 0; first < end; first += places_.columns())
      writeRow(labels, first - used);
    rtf_ += "\\pard\\plain\\fs2\\sl-20\\slmult0}";
    return {std::move(rtf_), (end + places_.count() - 1) / places_.count(), places_.after(end)};
  }

 private:
  // Edges are rounded one by one, so that no rounding adds up over the sheet.
  int leftOf(int column) const { return twips(areaOf(grid_, {1, column}).left); }
  int rightOf(int column) const { return twips(areaOf(grid_, {1, column}).left + grid_.width); }
  int topOf(int row) const { return twips(areaOf(grid_, {row, 1}).top); }
  int bottomOf(int row) const { return twips(areaOf(grid_, {row, 1}).top + grid_.height); }

  // The bottom margin leaves room for the rows of one sheet and no further one: the next row opens a new page.
  void writeHead() {
    const int paper = twips(grid_.paperHeight);
    const int bottom = std::max(0, paper - bottomOf(places_.rows()) - kEndParagraph);
    rtf_ = "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1{\\fonttbl{\\f0\\fswiss\\fcharset0 " + kLabelFont.family + ";}}\r\n";
    add("\\paperw", twips(grid_.paperWidth));
    add("\\paperh", paper);
    add("\\margl0\\margr0\\margt", topOf(1));
    add("\\margb", bottom);
    rtf_ += "\\headery0\\footery0\r\n";
  }

  void add(std::string_view word, int number) {
    rtf_ += word;
    rtf_ += std::to_string(number);
  }

  // A row of labels, and the gap to the next row of the sheet.
  void writeRow(const std::vector<LabelText>& labels, int first) {
    beginRow(bottomOf(row_) - topOf(row_));
    for (int column = 1; column <= places_.columns(); ++column)
      addCell(column);
    rtf_ += "\\pard\\intbl";
    for (int column = 1; column <= places_.columns(); ++column) {
      const int label = first + column - 1;
      const bool filled = label >= 0 && label < static_cast<int>(labels.size());
      writeLabel(filled ? labels[static_cast<std::size_t>(label)] : LabelText{}, column);
    }
    rtf_ += "\\row\r\n";
    const int gap = row_ < places_.rows() ? topOf(row_ + 1) - bottomOf(row_) : 0;
    if (gap > 0)
      writeGap(gap);
    row_ = row_ % places_.rows() + 1;
  }

  void beginRow(int height) {
    rtf_ += "\\trowd\\trgaph0";
    add("\\trleft", leftOf(1));
    add("\\trrh-", height);
  }

  // The gap between two labels is a cell of its own.
  void addCell(int column) {
    add("\\clvertalc\\cellx", rightOf(column));
    if (column < places_.columns() && leftOf(column + 1) > rightOf(column))
      add("\\cellx", leftOf(column + 1));
  }

  void writeGap(int height) {
    beginRow(height);
    add("\\cellx", rightOf(places_.columns()));
    rtf_ += "\\pard\\intbl\\plain\\fs2\\sl-20\\slmult0\\cell\\row\r\n";
  }

  void writeLabel(const LabelText& text, int column) {
    const double width = std::min(rightOf(column), twips(grid_.paperWidth) - kPaperEdge + kSideRoom) - leftOf(column);
    const double height = grid_.height * kTwipsPerInch;
    const double room = height - 2 * std::min<double>(kEdgeRoom, height * kMostOfHeight);
    const FittedLabel fitted = fitLabel(text, width - 2 * kSideRoom, room, kLabelFont, measure_);
    rtf_ += "\\pard\\plain\\intbl\\f0";
    add("\\fs", static_cast<int>(std::lround(fitted.points * 2)));
    add("\\li", kSideRoom);
    add("\\sl-", text.empty() ? 20 : static_cast<int>(fitted.lineHeight));
    rtf_ += "\\slmult0 ";
    for (std::size_t i = 0; i < fitted.lines.size(); ++i)
      rtf_ += (i > 0 ? "\\par " : "") + rtfText(fitted.lines[i]);
    rtf_ += "\\cell";
    if (column < places_.columns() && leftOf(column + 1) > rightOf(column))
      rtf_ += "\\pard\\plain\\intbl\\fs2\\cell";
    rtf_ += "\r\n";
  }

  SheetGrid grid_;
  LabelPlaces places_;
  const FontMeasure& measure_;
  std::string rtf_;
  int row_ = 1;
};

}  // namespace

LabelText labelText(std::string_view name, std::string_view addressBlock) {
  LabelText lines;
  for (const std::string& line : linesOf(name))
    if (!trim(line).empty())
      lines.emplace_back(trim(line));
  MergeContext parts;
  splitAddress(addressBlock, parts);
  lines.emplace_back(trim(parts.address));
  lines.emplace_back(trim(parts.cityStateZip));
  return lines;
}

LabelSheets makeLabelSheets(const std::vector<LabelText>& labels, const LabelSettings& settings,
                            const FontMeasure& measure) {
  return SheetWriter(settings.layout.grid, measure).write(labels, settings.start);
}

Result<LabelSheets> printLabels(Desk& desk, const std::vector<LabelText>& labels, const LabelSettings& settings,
                                std::string_view title) {
  LabelSheets sheets = makeLabelSheets(labels, settings, ArialWidths());
  if (sheets.sheets == 0)
    return Error{Trouble::BadInput, labels.empty()
                                        ? "There are no labels to print."
                                        : "With these margins no label lies on the paper.\nSet smaller margins in the "
                                          "label set-up, and print again."};
  const std::string path = joinPath(desk.session.programFolder, "\\tmp.rtf");
  if (const auto written = replaceFile(path, sheets.rtf); !written)
    return written.error();
  PrintOptions options = desk.session.print;
  options.marginsSet = options.landscape = false;
  if (const auto printed = desk.printing.print({std::string(title), path, options}); !printed)
    return printed.error();
  return sheets;
}

}  // namespace zelvo
