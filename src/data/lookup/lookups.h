#pragma once

#include "data/lookup/parcel_lookup.h"

namespace zelvo {

// The four look-ups, by the names that the office knows them by.

/// By the parts of the key.
class sblloc : public ParcelLookup {
 public:
  sblloc(Desk& desk, LookupFor whom);

 private:
  std::string conditions() const override;
};

/// By address.
class adloc : public ParcelLookup {
 public:
  adloc(Desk& desk, LookupFor whom);

 private:
  std::string conditions() const override;
};

/// By name: the owner, and the contact where the registry has the layout that holds one.
class conloc : public ParcelLookup {
 public:
  conloc(Desk& desk, LookupFor whom);

 private:
  std::string conditions() const override;
  void prepare(const Table& table) override;

  bool hasContacts_ = false;
};

/// By an entry of the imported tax roll. Looking makes no roll where none was imported.
class rpsloc : public ParcelLookup {
 public:
  rpsloc(Desk& desk, LookupFor whom);

 private:
  std::string conditions() const override;
  Result<std::shared_ptr<Connection>> reach() override;
};

/// A look-up by its name; null for any other.
std::unique_ptr<ParcelLookup> makeLookup(Desk& desk, std::string_view name, LookupFor whom);

}  // namespace zelvo
