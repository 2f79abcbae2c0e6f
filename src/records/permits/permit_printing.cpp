// Printing of permit documents: which letter or listing belongs to which entry of the print menu, and what the letters
// are filled with.

#include "base/files.h"
#include "base/text.h"
#include "documents/print_frm.h"
#include "records/permits/a_permits.h"
#include "records/permits/permit_reports.h"

namespace zelvo {

namespace {

struct PermitDocument {
  std::string_view name;
  std::string_view letter;
};

constexpr PermitDocument kDocuments[] = {
    {"Building Permit", "\\bldgperm.rtf"},       {"Expiring Permit", "\\expiring.rtf"},
    {"Expired Permit", "\\expired.rtf"},         {"Permit Notice", "\\pnotice.rtf"},
    {"Blank Red Ball", "\\predball.rtf"},        {"Label for Mailing", "lab.rtf"},
    {"Disapproval Notice", "\\disapproval.rtf"},
};

// The numbered values of a permit letter, 1 to 25, by the column that each shows. docs/letters.md lists them for the
// office.
constexpr std::string_view kValues[] = {
    "PERMIT",  "VD3",       "VD4",       "OWNNAME1",  "OWNADDR1",  "LOCN1",    "",        "USEBLDG", "PRMFOR",
    "DATA1",   "BLDGNAME1", "BLDGADDR1", "ARCHNAME1", "ARCHADDR1", "APPXCOST", "FILEFEE", "COFEE",   "ZONED",
    "DIMBLDG", "DIMLOT",    "STORIES",   "FAMILIES",  "ROOMS",     "BATHS",    "NOTES"};
static_assert(std::size(kValues) == 25);
constexpr std::size_t kParcelValue = 7;

std::string letterOf(std::string_view document) {
  for (const PermitDocument& known : kDocuments)
    if (known.name == document)
      return std::string(known.letter);
  return std::string(document) + (upper(right(document, 4)) == ".RTF" ? "" : ".rtf");
}

std::vector<std::string> documentNames(const Session& session) {
  std::vector<std::string> names;
  for (const PermitDocument& document : kDocuments)
    names.emplace_back(document.name);
  for (const std::string& line : readLines(joinPath(session.dataFolder, "\\pcustom.txt")).valueOr({}))
    if (!trim(line).empty())
      names.emplace_back(trim(line));
  names.emplace_back(kMonthlyPermits);
  return names;
}

void fillContext(const Recordset& permit, mdb& parcels, const Session& session, MergeContext& context) {
  const std::string parcel = currentSBL(permit, parcels.parts);
  for (std::size_t value = 1; value <= std::size(kValues); ++value)
    context.values[value] = kValues[value - 1].empty() ? "" : permit.text(kValues[value - 1]);
  context.values[kParcelValue] = mysbl2SBL(parcel, parcels.parts);
  splitAddress(permit.text("OWNADDR1"), context);
  context.name = permit.text("OWNNAME1");
  context.ln = permit.text("PERMIT");
  context.id = permit.text("PERMIT");
  context.mi = session.municipality.name;
  context.ms = session.userId;
  context.me = session.municipality.telephone;
  context.parcel = context.values[kParcelValue];
  context.counter = 1;
}

}  // namespace

void APermits::iPrint_Click() {
  PrintFrm options(desk, "Print Permit " + key(), documentNames(desk.session), PrintFrom::Record);
  desk.screens.showModal(options);
  if (!options.accepted() || desk.ended())
    return;
  const std::string& type = desk.session.print.type;
  const auto printed = type == kMonthlyPermits ? listMonthlyPermits(desk, parcels(), letters_) : doprint(type);
  showAttachments();
  if (!printed)
    desk.messages.tell(" " + caption, printed.error().message, Icon::Critical);
}

Result<void> APermits::doprint(std::string_view document) {
  fillContext(records(), parcels(), desk.session, letters_.context);
  showStatus("Printing to default printer...");
  auto printed = letters_.print(letterOf(document), document, keeper());
  showStatus("");
  return printed;
}

}  // namespace zelvo
