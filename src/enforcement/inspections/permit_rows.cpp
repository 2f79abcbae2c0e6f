#include "enforcement/inspections/permit_rows.h"

#include "base/text.h"
#include "data/parcel_key.h"
#include "data/query_text.h"
#include "enforcement/inspections/inspection_kind.h"
#include "records/field_copy.h"
#include "records/other_records.h"
#include "records/permits/permit_kind.h"
#include "records/record_rows.h"
#include "records/search_by_example.h"

namespace zelvo {

Result<std::unique_ptr<Recordset>> permitsWith(Desk& desk, std::string_view condition) {
  const std::string where = condition.empty() ? "" : " where " + std::string(condition);
  return otherRows(desk, "db1.mdb", "Select * from BLDGPERM" + where + " order by [PERMIT]");
}

namespace {

// The permit has the owner's address and the location apart; an inspector may remember either.
std::string placeClause(std::string_view text) {
  text = trim(text);
  const std::string pattern = "%" + std::string(text) + "%";
  return text.empty() ? "" : "(" + columnLike("OWNADDR1", pattern) + " or " + columnLike("LOCN1", pattern) + ") AND ";
}

}  // namespace

std::string permitCondition(const Screen& inspection) {
  std::string clauses;
  if (const std::string permit = boxText(inspection, inspection_box::kPermit); !permit.empty())
    clauses += columnIs("PERMIT", permit) + " AND ";
  clauses += containsClause("OWNNAME1", boxText(inspection, inspection_box::kOwner)) +
             placeClause(boxText(inspection, inspection_box::kLocation));
  const std::string section = boxText(inspection, 2);
  const auto point = section.find('.');
  clauses += containsClause("SEC", section.substr(0, point));
  if (point != std::string::npos)
    clauses += columnIs("SUD", trim(section.substr(point + 1))) + " AND ";
  for (const auto& [box, column] : {std::pair(3, "BLK"), {4, "LOT"}, {5, "LOD"}, {6, "SUB"}})
    clauses += containsClause(column, boxText(inspection, box));
  return clauses.empty() ? "" : clauses.substr(0, clauses.size() - std::string_view(" AND ").size());
}

void fillFromPermit(const Recordset& permit, Screen& inspection) {
  const auto fill = [&](int box, const std::string& text) {
    if (boxText(inspection, box).empty())
      setBoxText(inspection, box, text);
  };
  fill(inspection_box::kOwner, permit.text("OWNNAME1"));
  fill(inspection_box::kLocation, permit.text("LOCN1"));
  fill(inspection_box::kPhone, permit.text("OWNPHONE"));
  if (!SBLfilled(inspection))
    showParcel(permit, inspection);
}

PermitChoice::PermitChoice(Desk& itsDesk, std::shared_ptr<Recordset> permits)
    : Screen(itsDesk, "PermitChoice", "Which permit?"), permits_(std::move(permits)) {
  const auto columns = usualColumns(kPermits);
  for (const ShownColumn& shown : columns)
    ListView1.columns.push_back({shown.caption, shown.width, false});
  ListView1.rows = std::make_shared<RecordRows>(permits_, kPermits, columns);
  ListView1.selected = 0;
  cmdOK.isDefault = true;
  cmdCancel.isCancel = true;
  onOpenRow(ListView1, [this] { choose(); });
  onClick(cmdOK, [this] { choose(); });
  onClick(cmdCancel, [this] { closeMe(); });
}

void PermitChoice::choose() {
  if (!ListView1.selected || !permits_->goToPosition(*ListView1.selected + 1))
    return;
  chosen_ = permits_->text("PERMIT");
  closeMe();
}

}  // namespace zelvo
