#include "documents/reports/report_document.h"

#include <cmath>

#include "base/number.h"
#include "base/text.h"
#include "documents/reports/report_heading.h"
#include "documents/reports/report_shape.h"
#include "documents/rtf_writer.h"

namespace zelvo {

namespace {

constexpr int kShortSide = 12240, kLongSide = 15840;  // of letter paper, in twips
constexpr int kFooterFromEdge = 360;

std::string word(std::string_view name, int number) {
  return "\\" + std::string(name) + std::to_string(number);
}

int twips(double inches) {
  return static_cast<int>(std::lround(inches * 1440));
}

/// Counts the rows and adds up the columns that have a total.
class Totals {
 public:
  explicit Totals(std::span<const ReportTotal> totals) : totals_(totals), sums_(totals.size()) {}

  void add(const std::vector<std::string>& values) {
    ++rows_;
    for (std::size_t i = 0; i < totals_.size(); ++i)
      if (totals_[i].sumOf >= 0 && static_cast<std::size_t>(totals_[i].sumOf) < values.size())
        sums_[i] += amount(values[static_cast<std::size_t>(totals_[i].sumOf)]);
  }
  std::size_t rows() const { return rows_; }
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < totals_.size(); ++i)
      lines.push_back(std::string(totals_[i].label) +
                      (totals_[i].sumOf < 0 ? std::to_string(rows_) : numberPicture(sums_[i], kReportAmount)));
    return lines;
  }

 private:
  static double amount(std::string_view value) { return Val(replaceAll(replaceAll(value, "$", ""), ",", "")); }

  std::span<const ReportTotal> totals_;
  std::vector<double> sums_;
  std::size_t rows_ = 0;
};

class ReportWriter {
 public:
  ReportWriter(const ReportKind& kind, std::string_view title, std::string_view heading, const PrintOptions& options)
      : kind_(kind), title_(rtfText(title)), heading_(heading), options_(options), shape_(kind.columns, options) {}

  MadeReport write(ReportRows& rows) {
    rtf_ = heading_.opened(setUp());
    rtf_ += titleParagraph() + "\\par\r\n" + look() + "\\par\r\n" + heads() + "\\par\r\n";
    Totals totals(kind_.totals);
    std::vector<std::string> values;
    while (rows.next(values)) {
      totals.add(values);
      addLine(shape_.line(values));
    }
    addLine("");
    if (!kind_.rule.empty())
      addLine(kind_.rule);
    for (const std::string& line : totals.lines())
      addLine(line);
    rtf_ += '}';
    return {std::move(rtf_), totals.rows()};
  }

 private:
  // The words that every paragraph of the listing begins with, whatever the heading left in force.
  std::string look(std::string_view more = {}, int larger = 0) const {
    return "\\pard\\plain\\uc1" + std::string(more) + word("f", heading_.font()) +
           word("fs", (shape_.points() + larger) * 2) + " ";
  }
  std::string titleParagraph() const { return look("\\qc\\b", 2) + title_; }
  std::string heads() const {
    return look("\\b") + rtfText(shape_.captions()) + "\\par\r\n" + look() +
           std::string(static_cast<std::size_t>(shape_.width()), '-');
  }

  void addLine(std::string_view line) { rtf_ += rtfText(line) + "\\par\r\n"; }

  std::string setUp() const {
    std::string setUp = paper();
    setUp += word("headery", twips(options_.top)) + word("footery", kFooterFromEdge) + "\\titlepg\r\n";
    setUp += "{\\header" + titleParagraph() + "\\par\r\n" + look() + "\\par\r\n" + heads() + "\\par}\r\n";
    if (!heading_.hasFooter())
      for (const char* footer : {"footer", "footerf"})
        setUp += "{\\" + std::string(footer) + look("\\qr") + std::string(kRtfPageNumber) + "\\par}\r\n";
    return setUp;
  }

  // Said of the document and of its one section: a heading may state other paper for either.
  std::string paper() const {
    const int width = shape_.landscape() ? kLongSide : kShortSide;
    const int height = shape_.landscape() ? kShortSide : kLongSide;
    std::string words = shape_.landscape() ? "\\landscape\\lndscpsxn" : "";
    words += word("paperw", width) + word("paperh", height) + word("pgwsxn", width) + word("pghsxn", height);
    for (const char* section : {"", "sxn"}) {
      const std::string end = section;
      words += word("margl" + end, twips(options_.left)) + word("margr" + end, twips(options_.right)) +
               word("margt" + end, twips(options_.top)) + word("margb" + end, twips(options_.bottom));
    }
    return words;
  }

  const ReportKind& kind_;
  std::string title_;
  ReportHeading heading_;
  const PrintOptions& options_;
  ReportShape shape_;
  std::string rtf_;
};

// What a spreadsheet would work out instead of showing; numbers are meant to be numbers.
bool looksLikeFormula(std::string_view value) {
  return !value.empty() && std::string_view("=+-@\t\r").find(value.front()) != std::string_view::npos &&
         !isNumber(value);
}

std::string cell(std::string_view value) {
  std::string text = looksLikeFormula(value) ? "'" + std::string(value) : std::string(value);
  if (text.find_first_of(",\"\r\n") != std::string::npos || trim(text).size() != text.size())
    text = "\"" + replaceAll(text, "\"", "\"\"") + "\"";
  return text;
}

void addRecord(std::string& text, const std::vector<std::string>& values, std::size_t columns) {
  for (std::size_t i = 0; i < columns; ++i) {
    if (i > 0)
      text += ',';
    text += cell(i < values.size() ? std::string_view(values[i]) : std::string_view());
  }
  text += "\r\n";
}

}  // namespace

MadeReport makeReport(const ReportKind& kind, std::string_view title, std::string_view heading, ReportRows& rows,
                      const PrintOptions& options) {
  return ReportWriter(kind, title, heading, options).write(rows);
}

MadeReport makeSpreadsheet(const ReportKind& kind, ReportRows& rows) {
  MadeReport made{"\xEF\xBB\xBF", 0};
  std::vector<std::string> values;
  for (const ReportColumn& column : kind.columns)
    values.emplace_back(trim(column.caption));
  addRecord(made.text, values, kind.columns.size());
  for (; rows.next(values); ++made.rows)
    addRecord(made.text, values, kind.columns.size());
  return made;
}

}  // namespace zelvo
