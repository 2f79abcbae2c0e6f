#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "documents/document.h"
#include "documents/rtf_decoder.h"

namespace zelvo {

/// Keeps the sections of a letter while it is read. A section has the paper of the letter and the headers of the
/// section before it unless it states its own.
class RtfSections {
 public:
  /// The document is the first section; it must outlive this.
  explicit RtfSections(Document& document) : document_(document), current_(&document) {}

  /// True when the word was one of the paper, the section or its page numbers.
  bool take(const RtfToken& token);
  /// A section ends and the next one begins. What is said of it later is seen in the break that `body` ends with then.
  void begin(std::vector<Block>& body);
  /// A header or footer of this section begins: the one that it has from the section before it holds no more.
  void beginHeader(RtfDestination kind);
  /// Where the paragraphs of a header or footer go; null for every other text.
  std::vector<Paragraph>* listOf(RtfDestination kind);

 private:
  friend struct SectionWords;
  Section& own();
  void setNewPage(bool newPage);
  void numberPages();
  void startOver();

  Document& document_;
  PageSetup letter_;  // what the letter says of all its sections
  std::vector<Block>* body_ = nullptr;
  std::size_t break_ = 0;  // where the break before this section stands in the body
  Section* current_;
  std::shared_ptr<Section> shared_;  // the current section, unless it is the first one
  bool isOwn_ = true;                // not just the one before it going on
  std::size_t copied_ = 0;           // bytes
  std::size_t count_ = 0;            // of sections that began
  std::vector<RtfDestination> ownHeaders_;
  int firstNumber_ = 1;
  bool restarts_ = false;
};

}  // namespace zelvo
