#pragma once

#include <memory>
#include <span>
#include <string>
#include <vector>

#include "data/lookup/parcel_lookup.h"

namespace zelvo {

/// The flags of a parcel in words, "open violation, failed inspection"; empty when none is raised. The texts are those
/// of the columns VIOL, FAILED and OTHER.
std::string flagWords(std::string_view viol, std::string_view failed, std::string_view other);
/// Of the current row of the registry.
std::string flagsOf(const Recordset& parcels);

/// Stands for the three flags in a list.
inline constexpr std::string_view kFlagsColumn = "FLAGS";

/// The parcels found, as a list shows them: read when somebody looks at them. A blank cell shows as "--".
class LookupRows : public ListRows {
 public:
  LookupRows(std::shared_ptr<Recordset> rows, std::span<const LookupKind::Shown> shown);
  std::size_t count() const override { return rows_->RecordCount(); }
  std::string cell(std::size_t row, std::size_t column) const override;

 private:
  std::string text(std::size_t row, std::string_view column) const;

  std::shared_ptr<Recordset> rows_;
  std::vector<std::string_view> columns_;
};

}  // namespace zelvo
