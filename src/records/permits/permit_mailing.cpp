#include "records/permits/permit_mailing.h"

#include "records/permits/permit_letter.h"

namespace zelvo {

namespace {

bool mayPrint(Desk& desk, std::size_t count, std::string_view what, std::string_view title) {
  if (count == 0) {
    desk.messages.tell(" Record(s) not Found", "No records meet the criteria.");
    return false;
  }
  return desk.messages.confirm(" Mailing", std::string(title) + "\n\nThis prints " + std::to_string(count) +
                                               std::string(what) + "\nDo you want to go on?");
}

}  // namespace

Result<void> printOwnerLabels(const PermitListing& listing, Recordset& permits, std::string_view title) {
  if (!mayPrint(listing.desk, permits.RecordCount(), " labels.", title))
    return {};
  std::vector<LabelText> labels;
  for (; !permits.Eof(); permits.MoveNext())
    labels.push_back(labelText(permits.text("OWNNAME1"), permits.text("OWNADDR1")));
  const auto printed = listing.labels.print(labels, title);
  return printed ? Result<void>() : printed.error();
}

Result<void> printOwnerLetters(const PermitListing& listing, Recordset& permits, std::string_view letter,
                               std::string_view title) {
  const std::size_t count = permits.RecordCount();
  if (!mayPrint(listing.desk, count, " form letters.", title))
    return {};
  int& number = listing.letters.context.counter;
  for (number = 1; !permits.Eof(); permits.MoveNext(), ++number) {
    fillFromPermit(permits, listing.parcels, listing.desk.session, listing.letters.context);
    if (const auto printed = listing.letters.print(letter, title); !printed)
      return Error{printed.error().trouble, "Letter " + std::to_string(number) + " of " + std::to_string(count) +
                                                ", for the permit " + permits.text("PERMIT") +
                                                ", could not be printed; those before it are.\n" +
                                                printed.error().message};
  }
  return {};
}

}  // namespace zelvo
