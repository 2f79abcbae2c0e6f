#include "ui/printing/glyph_pdf.h"

#include <QDateTime>
#include <algorithm>
#include <cmath>
#include <deque>
#include <unordered_map>

#include "ui/printing/paper_font.h"
#include "ui/printing/pdf_file.h"

namespace zelvo {

namespace {

constexpr double kThousandthsATwip = 50;  // of a point
constexpr std::size_t kMostGlyphs = 65536;

long long thousandthsOf(double twips) {
  return std::llround(twips * kThousandthsATwip);
}

void appendInk(std::string& content, const Colour& colour) {
  for (const std::uint8_t part : {colour.red, colour.green, colour.blue})
    appendThousandths(content, std::lround(part * 1000 / 255.0));
  content += "rg\n";
}

// A font of the letter and what of it the letter is written with.
class UsedFont {
 public:
  UsedFont(const PaperFace& face, std::string name) : face_(face), name_(std::move(name)), used_(kMostGlyphs) {
    // The usual letters go along with every letter, so that most need the same part of the font.
    std::string usual;
    for (char letter = ' '; letter <= '~'; ++letter)
      usual += letter;
    std::string ignored;
    isWritable_ = face.pdfFont() && write(usual, ignored);
  }

  const std::string& name() const { return name_; }
  bool isWritable() const { return isWritable_; }

  bool write(std::string_view text, std::string& content) {
    constexpr std::string_view hex = "0123456789abcdef";
    spelled_.clear();
    if (!face_.spell(text, spelled_))
      return false;
    content += '<';
    for (const PaperFace::Glyph* glyph : spelled_) {
      if (glyph->number >= kMostGlyphs)
        return false;
      if (!used_[glyph->number])
        glyphs_.push_back({glyph->number, glyph->advance * 1000 / kPaperFontSize, glyph->character});
      used_[glyph->number] = true;
      for (const unsigned shift : {12U, 8U, 4U, 0U})
        content += hex[glyph->number >> shift & 0xF];
    }
    content += "> Tj\n";
    return true;
  }

  int addTo(PdfFile& file) {
    std::sort(glyphs_.begin(), glyphs_.end(), [](const PdfGlyph& a, const PdfGlyph& b) { return a.number < b.number; });
    return face_.pdfFont()->addTo(file, glyphs_);
  }

 private:
  const PaperFace& face_;
  std::string name_;
  bool isWritable_ = false;
  std::vector<bool> used_;
  std::vector<PdfGlyph> glyphs_;
  std::vector<const PaperFace::Glyph*> spelled_;
};

class GlyphWriter {
 public:
  explicit GlyphWriter(const PaperFaces& faces) : faces_(faces), resources_(file_.reserve()), pages_(file_.reserve()) {}

  bool add(const Page& page) {
    if (!page.pictures.empty())
      return false;
    content_.clear();
    height_ = page.height;
    ink_ = Colour{};
    fill(page.shades);
    if (!write(page.texts))
      return false;
    fill(page.rules);
    const int content = file_.addPacked(packedForPdf(content_, false), "");
    std::string paper = "[0 0 ";
    appendThousandths(paper, thousandthsOf(page.width));
    appendThousandths(paper, thousandthsOf(page.height));
    kids_ +=
        pdfReference(file_.add("<</Type/Page/Parent " + pdfReference(pages_) + "/MediaBox" + paper + "]/Resources " +
                               pdfReference(resources_) + "/Contents " + pdfReference(content) + ">>")) +
        "\n";
    ++count_;
    return true;
  }

  std::string finish(std::string_view title) {
    std::string names;
    for (UsedFont& font : fonts_)
      names += font.name() + " " + pdfReference(font.addTo(file_));
    file_.write(resources_, "<</ProcSet[/PDF/Text]/Font<<" + names + ">>>>");
    file_.write(pages_, "<</Type/Pages/Count " + std::to_string(count_) + "/Kids[" + kids_ + "]>>");
    const int catalogue = file_.add("<</Type/Catalog/Pages " + pdfReference(pages_) + ">>");
    const std::string now = QDateTime::currentDateTimeUtc().toString(QStringLiteral("yyyyMMddhhmmss")).toStdString();
    const int information =
        file_.add("<</Title" + pdfText(title) + "/Creator(Zelvo)/Producer(Zelvo)/CreationDate(D:" + now + "Z)>>");
    return file_.finish(catalogue, information);
  }

 private:
  void takeInk(const Colour& colour) {
    if (colour == ink_)
      return;
    ink_ = colour;
    appendInk(content_, colour);
  }

  void fill(const std::vector<FilledPiece>& pieces) {
    for (const FilledPiece& piece : pieces) {
      takeInk(piece.colour);
      for (const double number : {piece.x, height_ - piece.y - piece.height, piece.width, piece.height})
        appendThousandths(content_, thousandthsOf(number));
      content_ += "re f\n";
    }
  }

  bool write(const std::vector<TextPiece>& texts) {
    content_ += "BT\n";
    at_ = {0, 0};
    font_ = nullptr;
    for (const TextPiece& text : texts)
      if (!write(text))
        return false;
    content_ += "ET\n";
    return true;
  }

  bool write(const TextPiece& text) {
    takeInk(text.colour);
    UsedFont& font = fontOf(text.font);
    if (!font.isWritable())
      return false;
    takeFont(font, text.font.points);
    const std::pair<long long, long long> place{thousandthsOf(text.x), thousandthsOf(height_ - text.baseline)};
    appendThousandths(content_, place.first - at_.first);
    appendThousandths(content_, place.second - at_.second);
    content_ += "Td\n";
    at_ = place;
    return font.write(text.text, content_);
  }

  void takeFont(const UsedFont& font, double points) {
    if (font_ == &font && points_ == points)
      return;
    font_ = &font;
    points_ = points;
    content_ += font.name() + " ";
    appendThousandths(content_, std::llround(points * 1000));
    content_ += "Tf\n";
  }

  UsedFont& fontOf(const TextFont& font) {
    const PaperFace& face = faces_.of(font);
    const auto [known, isNew] = fontOfFace_.try_emplace(&face);
    if (isNew)
      known->second = &fonts_.emplace_back(face, "/F" + std::to_string(fonts_.size() + 1));
    return *known->second;
  }

  const PaperFaces& faces_;
  PdfFile file_;
  int resources_, pages_;
  std::deque<UsedFont> fonts_;
  std::unordered_map<const PaperFace*, UsedFont*> fontOfFace_;
  std::string kids_;
  int count_ = 0;
  std::string content_;  // of the page being written
  double height_ = 0;    // of its paper
  Colour ink_;
  const UsedFont* font_ = nullptr;
  double points_ = 0;
  std::pair<long long, long long> at_;  // where the last text began, in thousandths of a point
};

}  // namespace

std::optional<std::string> glyphPdf(const PagedDocument& document, std::string_view title, const PaperFaces& faces) {
  GlyphWriter writer(faces);
  for (const Page& page : document.pages)
    if (!writer.add(page))
      return std::nullopt;
  return writer.finish(title);
}

}  // namespace zelvo
