#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "data/parcel_key.h"
#include "data/recordset.h"
#include "form/session.h"

namespace zelvo {

/// A parcel as the extended layout of the registry tells it.
struct ExtendedParcel {
  std::string key, assoc, location, contact, mailing, east, north;
};

/// The parcel registry as the record screens share it; its current row is the parcel that was last looked up or added.
/// SBLExists comes before any Has, Set, Clear or Update; without a current row the Has operations answer false and the
/// others are Trouble::NotFound. Texts that are too long are cut to their columns. What someone else changed in the
/// row meanwhile stays, except for the fields that an operation writes.
class mdb {
 public:
  explicit mdb(Session& session) : session_(session) {}

  /// Opens the registry anew for a fresh view and tells the session which layout it has. No parcel is current then.
  Result<void> resetsbl();

  /// Whether the parcel is registered; its row is then current and the current values are filled. Always false while
  /// the session's look-up switch is on. One look-up by index, however many parcels there are. Of a key longer than the
  /// registry holds, the part that it holds counts.
  Result<bool> SBLExists(std::string_view key);
  /// Adds a parcel: key cut to 40 characters, owner and permit to 20, location to 70; no flag raised.
  /// Trouble::Duplicate when it is there already.
  Result<void> SBLAdd(std::string_view key, std::string_view permit, std::string_view assoc, std::string_view notes,
                      std::string_view location);
  /// The same for the extended layout; a registry of the old layout leaves out what it has no field for.
  Result<void> SBLAdd18(std::string_view key, std::string_view permit, std::string_view assoc, std::string_view notes,
                        std::string_view location, std::string_view contact, std::string_view mailing);
  Result<void> SBLAddExtended(const ExtendedParcel& parcel);
  Result<void> SBLUpdateExtended(const ExtendedParcel& parcel);
  /// Rewrites owner ("UNK" when empty) and notes of the current row.
  Result<void> SBLUpdate(std::string_view key, std::string_view assoc, std::string_view notes);
  /// Rewrites the key, owner, permit, history (the permit followed by "*") and location of the current row.
  Result<void> SBLUpdate2(std::string_view key, std::string_view permit, std::string_view assoc,
                          std::string_view location);
  Result<void> SBLHistoryUpdate(std::string_view history);
  /// Rewrites the mailing town, state and postal code, and the link to the map, of the current row.
  Result<void> SBLPlaceUpdate(std::string_view city, std::string_view state, std::string_view zip,
                              std::string_view gislink);

  /// Does several of these as one: all of them are stored or none. Trouble::Conflict, and nothing done, when someone
  /// else changed the current row since it was looked up. For a clerk who edits a parcel, and would overwrite it
  /// unseen.
  Result<void> asOne(const std::function<Result<void>()>& changes);

  bool SBLHasOther();
  bool SBLHasViol();
  bool SBLHasFailed();
  bool SBLHasComplaint();
  bool SBLHasNotes();

  // Each Set writes the current note into NOTES. A complaint and a failed inspection share one flag: the later one
  // stands.
  Result<void> SBLSetOther();
  Result<void> SBLSetFailed();
  Result<void> SBLSetComplaint();
  Result<void> SBLSetViol();
  Result<void> SBLClearOther();
  Result<void> SBLClearFailed();
  Result<void> SBLClearViol();
  /// Clears every flag, and the notes with them.
  Result<void> SBLClearFlag();

  // Of the parcel that was found last.
  std::string permit, assoc, location, mailing;
  /// Written into NOTES by the Set operations, filled from NOTES by the Has operations.
  std::string currentNote;
  ParcelParts parts;

 private:
  using Write = std::function<void(Recordset&)>;

  bool flagIs(std::string_view field, double value);
  bool onParcel() const;
  Result<void> reach();
  Result<void> unchanged() const;
  Result<std::unique_ptr<Recordset>> rowsOf(std::string_view key);
  Result<void> addRow(std::string_view key, const Write& write);
  Result<void> rewriteRow(const Write& write);
  Result<void> writeAndStore(const Write& write);
  Result<void> setFlag(std::string_view field, int value, bool withNote);

  Session& session_;
  std::string folder_;  ///< of the registry that is open
  std::shared_ptr<Connection> connection_;
  std::unique_ptr<Recordset> parcels_;
};

}  // namespace zelvo
