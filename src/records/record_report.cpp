#include "records/record_report.h"

#include "base/number.h"

namespace zelvo {

std::string reportValue(const Recordset& row, std::string_view field) {
  const Value value = row.get(field);
  return value.isDate() ? datePicture(value.moment()->date, "mm/dd/yy") : value.text();
}

std::string reportAmount(const Recordset& row, std::string_view field) {
  return numberPicture(row.get(field).number(), kReportAmount);
}

bool RecordReportRows::next(std::vector<std::string>& values) {
  while (!records_.Eof() && wanted && !wanted(records_))
    records_.MoveNext();
  if (records_.Eof())
    return false;
  values.clear();
  for (const ReportColumn& column : columns_)
    values.push_back(reading_(records_, column.field));
  records_.MoveNext();
  return true;
}

bool ListedRows::next(std::vector<std::string>& values) {
  if (at_ == rows_.size())
    return false;
  values = rows_[at_++];
  return true;
}

}  // namespace zelvo
