#include "data/row_pages.h"

#include <time.h>

#include <algorithm>

#include "data/recordset.h"

namespace zelvo {

namespace {

constexpr std::size_t rowsOfPage = 100;
constexpr std::size_t mostPages = 8;
constexpr std::chrono::seconds goodFor{2};

/// Cells are asked for by the thousand, and a moment need not be measured finer than the system's tick.
std::chrono::nanoseconds now() {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC_COARSE, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::span<const RowId> rowsOf(std::span<const RowId> keys, std::size_t page) {
  const std::size_t from = page * rowsOfPage;
  return keys.subspan(from, std::min(rowsOfPage, keys.size() - from));
}

}  // namespace

const Row& RowPages::row(std::span<const RowId> keys, std::size_t position) {
  return pageOf(keys, position / rowsOfPage).rows[position % rowsOfPage];
}

const Row* RowPages::rowIfReadable(std::span<const RowId> keys, std::size_t position) {
  if (failed_ && now() - *failed_ <= goodFor)
    return nullptr;
  failed_.reset();
  try {
    return &row(keys, position);
  } catch (const StoreError&) {
    failed_ = now();
    return nullptr;
  }
}

RowPages::Page& RowPages::pageOf(std::span<const RowId> keys, std::size_t number) {
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& page) { return page.number == number; });
  if (found == pages_.end()) {
    pages_.push_front(fetch(keys, number));
    if (pages_.size() > mostPages)
      pages_.pop_back();
    return pages_.front();
  }
  if (found->rows.size() != rowsOf(keys, number).size() || now() - found->read > goodFor)
    *found = fetch(keys, number);
  if (found != pages_.begin())
    pages_.splice(pages_.begin(), pages_, found);
  return pages_.front();
}

RowPages::Page RowPages::fetch(std::span<const RowId> keys, std::size_t number) {
  auto rows = engine_.rows(table_, rowsOf(keys, number));
  if (!rows)
    throw StoreError(rows.error());
  return {number, now(), std::move(*rows)};
}

void RowPages::forget(std::size_t position) {
  pages_.remove_if([&](const Page& page) { return page.number == position / rowsOfPage; });
}

}  // namespace zelvo
