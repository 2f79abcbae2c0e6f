#include "documents/editor/body_change.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <utility>

namespace zelvo {

namespace {

using Blocks = std::vector<Block>;
using Place = Blocks::difference_type;

Blocks::iterator placeIn(Blocks& blocks, std::size_t at) {
  return blocks.begin() + static_cast<Place>(at);
}

// How far two rows of blocks are alike from their beginnings, and from there from their ends. What is known to be alike
// is not read again.
struct Alike {
  std::size_t front = 0, back = 0;
};

Alike alikeOf(std::span<const Block> one, std::span<const Block> other, Alike known = {}) {
  const std::size_t shorter = std::min(one.size(), other.size());
  Alike alike{std::min(known.front, shorter), 0};
  while (alike.front < shorter && one[alike.front] == other[alike.front])
    ++alike.front;
  alike.back = std::min(known.back, shorter - alike.front);
  while (alike.back < shorter - alike.front && one[one.size() - 1 - alike.back] == other[other.size() - 1 - alike.back])
    ++alike.back;
  return alike;
}

}  // namespace

void trimChange(const Blocks& body, BodyChange& change) {
  const Alike alike = alikeOf(std::span(body).subspan(change.at, change.gone), change.come);
  change.come.erase(change.come.end() - static_cast<Place>(alike.back), change.come.end());
  change.come.erase(change.come.begin(), placeIn(change.come, alike.front));
  change.at += alike.front;
  change.gone -= alike.front + alike.back;
}

BodyChange changeBetween(const Blocks& before, const Blocks& after) {
  const Alike alike = alikeOf(before, after);
  return {alike.front, before.size() - alike.front - alike.back,
          Blocks(after.begin() + static_cast<Place>(alike.front), after.end() - static_cast<Place>(alike.back))};
}

BodyChange makeChange(Blocks& body, BodyChange change) {
  const std::size_t both = std::min(change.gone, change.come.size());
  const auto first = placeIn(body, change.at);
  const auto rest = std::swap_ranges(change.come.begin(), placeIn(change.come, both), first);
  BodyChange back{change.at, change.come.size(), {}};
  if (change.gone > both) {
    const auto end = rest + static_cast<Place>(change.gone - both);
    std::move(rest, end, std::back_inserter(change.come));
    body.erase(rest, end);
  } else if (change.come.size() > both) {
    const auto further = placeIn(change.come, both);
    body.insert(rest, std::make_move_iterator(further), std::make_move_iterator(change.come.end()));
    change.come.erase(further, change.come.end());
  }
  back.come = std::move(change.come);
  return back;
}

void StoredBody::store(const Blocks& body) {
  stored_ = body;
  front_ = back_ = body.size();
  differs_ = false;
}

void StoredBody::noteChange(const Blocks& body, std::size_t at, std::size_t come) {
  const Alike alike = alikeOf(body, stored_, {std::min(front_, at), std::min(back_, body.size() - at - come)});
  front_ = alike.front;
  back_ = alike.back;
  differs_ = body.size() != stored_.size() || front_ < body.size();
}

}  // namespace zelvo
