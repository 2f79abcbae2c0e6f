#include "data/engine.h"

#include <algorithm>

#include "base/file_trouble.h"
#include "base/text.h"
#include "data/row_storing.h"

namespace zelvo {

const Table* Engine::find(std::string_view name) const {
  const auto found =
      std::find_if(tables_.begin(), tables_.end(), [&](const Table* table) { return alike(table->name, name); });
  return found == tables_.end() ? nullptr : *found;
}

Result<const Table*> Engine::table(std::string_view name) const {
  if (const Table* found = find(name))
    return found;
  return fileError(FileDeed::Read, path(), Trouble::NotFound, "it holds no table " + std::string(name),
                   "Choose another data folder in the preferences.");
}

// ---- transactions

Result<void> Engine::begin(std::span<const std::string> along) {
  if (transaction_)
    return Error{Trouble::Failed,
                 "The changes to \"" + path() +
                     "\" cannot be begun: others are under way in the same screen. Store those or give "
                     "them up first."};
  auto begun = joinAll(along);
  if (begun)
    begun = open();
  if (begun)
    transaction_ = std::make_shared<Outcome>(Outcome::Open);
  else
    partAll();
  return begun;
}

Result<void> Engine::joinAll(std::span<const std::string> paths) {
  for (const std::string& path : paths) {
    const auto joined = join(path);
    if (!joined)
      return joined.error();
    tables_.push_back(*joined);
  }
  return {};
}

void Engine::partAll() {
  part();
  tables_.resize(own_);
}

Result<void> Engine::commit() {
  auto committed = keep();
  end(committed ? Outcome::Kept : Outcome::GivenUp);
  return committed;
}

void Engine::rollback() {
  giveUp();
  end(Outcome::GivenUp);
}

void Engine::end(Outcome outcome) {
  if (transaction_)
    *transaction_ = outcome;
  transaction_.reset();
  partAll();
}

// Whoever moves an office to another store holds the old one until the records have their new place. So it is asked
// for now that nobody else holds it: what is stored is never stored in a place that the office has left.
Result<void> Engine::open() {
  auto ready = takeForWriting();
  if (ready)
    ready = inItsPlace();
  if (!ready)
    giveUp();
  return ready;
}

// A store may take the commit of a transaction that failed for a rollback, without a word.
Result<void> Engine::keep() {
  auto kept = standing() == Standing::Open ? execute("commit") : givenUpBefore(path());
  if (!kept)
    giveUp();
  return kept;
}

void Engine::giveUp() {
  if (standing() != Standing::NoTransaction)
    (void)execute("rollback").ok();
}

Result<void> Engine::goesOn() const {
  return transaction_ && standing() != Standing::Open ? givenUpBefore(path()) : Result<void>();
}

// ---- single changes

/// A change of the database, begun by taking it for writing: part of the engine's transaction when one is open, else
/// one of its own. What is not kept is given up whole.
class Engine::Change {
 public:
  explicit Change(Engine& engine) : engine_(engine), joined_(engine.transaction_ != nullptr) {}
  Change(const Change&) = delete;
  Change& operator=(const Change&) = delete;
  ~Change() {
    if (begun_ && !joined_)
      engine_.giveUp();
    else if (begun_ && engine_.standing() != Standing::NoTransaction)
      (void)engine_.execute("rollback to part; release part").ok();
  }

  Result<void> begin() {
    if (auto going = engine_.goesOn(); !going)
      return going;
    auto begun = joined_ ? engine_.execute("savepoint part") : engine_.open();
    begun_ = begun.ok();
    return begun;
  }
  Result<void> keep() {
    begun_ = false;
    return joined_ ? engine_.execute("release part") : engine_.keep();
  }

 private:
  Engine& engine_;
  bool joined_;
  bool begun_ = false;
};

Result<RowId> Engine::insert(const Table& table, const Row& row) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun.error();
  auto id = addRow(table, row);
  if (!id)
    return id;
  if (auto kept = change.keep(); !kept)
    return kept.error();
  return id;
}

Result<void> Engine::checkUnchanged(const Table& table, RowId id, const Row& read) {
  const auto now = rows(table, std::span(&id, 1));
  if (!now)
    return now.error();
  if (now->front() == asStored(read))
    return {};
  return changedMeanwhile(path(), table, read, now->front());
}

Result<void> Engine::update(const Table& table, RowId id, const Row& read, const Row& typed) {
  const auto positions = differing(read, typed);
  if (positions.empty())
    return {};
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  auto stored = checkUnchanged(table, id, read);
  if (stored)
    stored = changeRow(table, id, positions, typed);
  return stored ? change.keep() : stored;
}

Result<void> Engine::remove(const Table& table, RowId id, const Row& read) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  auto removed = checkUnchanged(table, id, read);
  if (removed)
    removed = removeRow(table, id, read);
  return removed ? change.keep() : removed;
}

Result<void> Engine::insertMany(const Table& table, std::span<const std::size_t> positions, const NextRow& nextRow) {
  Change change(*this);
  if (auto begun = change.begin(); !begun)
    return begun;
  auto stored = addRows(table, positions, nextRow);
  return stored ? change.keep() : stored;
}

}  // namespace zelvo
