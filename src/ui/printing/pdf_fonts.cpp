#include "ui/printing/pdf_fonts.h"

namespace zelvo {

namespace {

constexpr std::size_t kMostGlyphs = 65536;

}  // namespace

PdfFonts::UsedFont::UsedFont(const RealFont& font, const PaperFace& face, std::string name)
    : font_(&font.pdfFont()),
      name_(std::move(name)),
      mostAPart_(font_->namesByNumber() ? kMostGlyphs : PdfFont::kMostOutlines),
      places_(kMostGlyphs) {
  // The usual letters go along with every letter, so that most need the same part of the font.
  for (char32_t letter = U' '; font_->namesByNumber() && letter <= U'~'; ++letter)
    if (const PaperGlyph& glyph = face.glyphOf(letter); glyph.font == &font)
      nameOf(glyph);
}

std::size_t PdfFonts::UsedFont::add(const PaperGlyph& glyph) {
  if (parts_.empty() || parts_.back().glyphs.size() == mostAPart_)
    parts_.push_back({name_ + (parts_.empty() ? "" : "P" + std::to_string(parts_.size())), {}});
  parts_.back().glyphs.push_back({glyph.number, glyph.advance * 1000 / kPaperFontSize, 0});
  return (parts_.size() - 1) * mostAPart_ + parts_.back().glyphs.size();
}

PdfGlyphName PdfFonts::UsedFont::nameOf(const PaperGlyph& glyph) {
  constexpr char32_t fixedBlank = 0xA0;
  std::uint32_t& place = places_[glyph.number % kMostGlyphs];
  if (place == 0)
    place = static_cast<std::uint32_t>(add(glyph));
  const std::size_t inPart = (place - 1) % mostAPart_;
  Part& part = parts_[(place - 1) / mostAPart_];
  char32_t& character = part.glyphs[inPart].character;
  if (character == 0 && glyph.number != 0)
    character = glyph.character;
  const bool readsBack = character == glyph.character || (character == U' ' && glyph.character == fixedBlank);
  if (font_->namesByNumber())
    return {&part.name, glyph.number, 4, readsBack, font_->slant(), font_->thickening()};
  return {&part.name, static_cast<unsigned>(inPart), 2, readsBack, font_->slant(), 0};
}

std::string PdfFonts::UsedFont::addTo(PdfFile& file) const {
  std::string entries;
  for (const Part& part : parts_)
    entries += part.name + " " + pdfReference(font_->addTo(file, part.glyphs));
  return entries;
}

PdfGlyphName PdfFonts::nameOf(const PaperFace& face, const PaperGlyph& glyph) {
  if (glyph.font != last_) {
    const auto [known, isNew] = known_.try_emplace(glyph.font);
    if (isNew)
      known->second = &fonts_.emplace_back(*glyph.font, face, "/F" + std::to_string(fonts_.size() + 1));
    last_ = glyph.font;
    lastUsed_ = known->second;
  }
  return lastUsed_->nameOf(glyph);
}

std::string PdfFonts::addTo(PdfFile& file) const {
  std::string entries;
  for (const UsedFont& font : fonts_)
    entries += font.addTo(file);
  return entries;
}

}  // namespace zelvo
