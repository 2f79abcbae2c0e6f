#include "data/engine.h"

namespace zelvo {

Result<void> Engine::begin() {
  if (transaction_)
    return Error{Trouble::Failed,
                 "The changes to \"" + path() +
                     "\" cannot be begun: others are under way in the same screen. Store those or give "
                     "them up first."};
  if (auto begun = doBegin(); !begun)
    return begun;
  transaction_ = std::make_shared<Outcome>(Outcome::Open);
  return {};
}

Result<void> Engine::commit() {
  auto committed = doCommit();
  end(committed ? Outcome::Kept : Outcome::GivenUp);
  return committed;
}

void Engine::rollback() {
  doRollback();
  end(Outcome::GivenUp);
}

void Engine::end(Outcome outcome) {
  if (transaction_)
    *transaction_ = outcome;
  transaction_.reset();
}

}  // namespace zelvo
