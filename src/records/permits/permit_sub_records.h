#pragma once

#include "records/sub_records/sub_record_kind.h"

namespace zelvo {

/// The insurance certificates that the office asks of whoever builds.
inline constexpr SubRecordKind kPermitInsurance = {
    .table = "INSBASE",
    .noun = "insurance",
    .page = "Ins&urance",
    .name = "Ins",
    .types = "\\pit.txt",
    .columns = {"INSCO1", "IADDR1", "IPHONE1", "ICERT", "ISSUED", "IPROJ", "INOTES"},
    .type = "ITYP1",
    .from = "IFR1",
    .to = "ITO1",
    .mark = "",
    .nameCaption = " Company ",
    .notesCaption = " Comments ",
    .nameMissing = "--Insurance Company",
    .typeMissing = "--Insurance Type",
};

/// The people who work on the site. Other records keep their contacts in the same table: "P" says that a permit's is.
inline constexpr SubRecordKind kPermitContacts = {
    .table = "CONBASE",
    .noun = "contact",
    .page = "Con&tacts",
    .name = "Contact",
    .types = "\\pct.txt",
    .columns = {"CINSCO1", "CIADDR1", "CIPHONE1", "CICERT", "CISSUED", "CIPROJ", "CINOTES"},
    .type = "CITYP1",
    .from = "CIFR1",
    .to = "CITO1",
    .mark = "P",
    .nameCaption = " Contact ",
    .notesCaption = " Notes ",
    .nameMissing = "--Contact Name",
    .typeMissing = "--Contact Type",
};

}  // namespace zelvo
