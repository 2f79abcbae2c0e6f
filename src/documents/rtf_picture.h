#pragma once

#include <memory>
#include <optional>

#include "documents/document.h"
#include "documents/rtf_reader.h"

namespace zelvo {

/// Puts the picture of a letter together from its words and its data.
class RtfPicture {
 public:
  void take(const RtfToken& word);
  void data(const RtfToken& token);
  /// The picture; nothing when its kind is none that can be shown. Ready for the next one then.
  std::shared_ptr<const Picture> finish();

 private:
  enum class Source { Unknown, File, Bitmap, Metafile };
  std::optional<Picture> read() const;
  std::optional<Picture> drawn() const;
  void placeOnPaper(Picture& picture) const;

  Source source_ = Source::Unknown;
  int width_ = 0, height_ = 0;          // the picture's own, in units of its kind
  int goalWidth_ = 0, goalHeight_ = 0;  // twips
  double acrossScale_ = 1, downScale_ = 1;
  int cropLeft_ = 0, cropTop_ = 0, cropRight_ = 0, cropBottom_ = 0;  // twips of the goal size
  std::string bytes_;
  int half_ = -1;  // the first digit of a byte whose second one has not come yet
};

}  // namespace zelvo
