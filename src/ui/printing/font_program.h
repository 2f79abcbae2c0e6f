#pragma once

#include <QByteArray>
#include <QRawFont>
#include <array>
#include <optional>
#include <set>

namespace zelvo {

/// The file of a font, of which a PDF takes along the part that its letter is written with.
class FontProgram {
 public:
  /// Nothing when a PDF cannot take it along as it is: it is of another kind, or its maker keeps it to himself.
  static std::optional<FontProgram> of(const QRawFont& font);

  /// A font file with the outlines of these glyphs alone, under the numbers that they have here.
  QByteArray part(std::set<quint32> glyphs) const;
  /// Whether its outlines are in the compact format, which goes along whole.
  bool isCompact() const { return !cff_.isEmpty(); }

  double unitsPerEm() const;
  std::array<int, 4> box() const;  ///< around all of its outlines, in its units: left, bottom, right, top
  int ascent() const;
  int descent() const;  ///< below zero

 private:
  FontProgram() = default;
  bool isWhole() const;
  QByteArray outline(quint32 glyph) const;
  void addComponents(quint32 glyph, std::set<quint32>& glyphs) const;

  QByteArray head_, hhea_, maxp_, hmtx_, loca_, glyf_;
  QByteArray cff_;
  QByteArray cvt_, fpgm_, prep_;  // what the outlines are hinted with; fonts may do without
};

}  // namespace zelvo
