#pragma once

#include "records/record_kind.h"

namespace zelvo {

inline constexpr ListField kPermitList[] = {{" Permit ", "PERMIT", 12},
                                            {" Type ", "USEBLDG", 18},
                                            {" Use ", "PRMFOR", 14},
                                            {" Location ", "LOCN1", 32},
                                            {" Owner ", "OWNNAME1", 32}};

inline constexpr RequiredBox kPermitRequired[] = {
    {1, "--Permit"}, {18, "--Owner"}, {17, "--Owner Address"}, {34, "--Property Location"}, kParcelRequired};

inline constexpr RecordKind kPermits = {
    .screen = "APermits",
    .caption = "Building Permits",
    .table = "BLDGPERM",
    .noun = "permit",
    .page = "Per&mit",
    .code = "01",
    .slot = QuerySlot::Permits,
    .numbering = {"BLDGPRM", "\\phi.txt", "\\pnb.txt", &NumberSeeds::permit},
    .list = kPermitList,
    .required = kPermitRequired,
    .ofParcel = {.owner = 18, .address = 17, .location = 34},
};

}  // namespace zelvo
