#pragma once

#include "records/record_kind.h"

namespace zelvo {

/// The boxes of the inspections screen beside the number and the parcel, as the catalogue places its columns.
namespace inspection_box {
inline constexpr int kPermit = 7, kOwner = 8, kLocation = 9, kPhone = 10, kComments = 11;
inline constexpr int kComplainant = 12, kComplainantAddress = 13, kComplainantPhone = 14, kNature = 15, kNotes = 16;
inline constexpr int kCategory = 17, kType = 18, kInspector = 19, kResult = 20, kInvestigator = 21;
}  // namespace inspection_box

inline constexpr ListField kInspectionList[] = {{" ICN ", "RECNO", 8},           {" Cat ", "INSPCATEG", 5},
                                                {" Typ ", "INSPTYPE", 22},       {" Date ", "DATEINSP", 10},
                                                {" Result ", "INSPRESULT", 8},   {" Inspector ", "INSPINIT", 18},
                                                {" Comments ", "INSPCOMM1", 40}, {" Permit", "PERMIT", 12, "N/A"}};

inline constexpr RequiredBox kInspectionRequired[] = {{inspection_box::kPermit, "--Permit"},
                                                      {inspection_box::kInspector, "--Inspector"},
                                                      {1, "--ICN #"},
                                                      {inspection_box::kLocation, "--Location"},
                                                      {inspection_box::kResult, "--Inspection result"},
                                                      kParcelRequired,
                                                      {inspection_box::kCategory, "--Inspection Category"},
                                                      {inspection_box::kType, "--Inspection type"},
                                                      {inspection_box::kComplainant, "--Complainant"},
                                                      {inspection_box::kNature, "--Nature of Complaint"},
                                                      {inspection_box::kLocation, "--Property Location"}};

inline constexpr std::string_view kInspectionSoughtWhole[] = {"RECNO", "INSPCATEG", "INSPTYPE"};

/// Stands in the store for a date that is not given.
inline constexpr Date kNoInspectionDate{1910, 1, 1};

inline constexpr RecordKind kInspections = {
    .screen = "BInspections",
    .caption = "Building Inspections",
    .table = "INSPDTL",
    .noun = "inspection",
    .page = "Inspecti&on",
    .code = "02",
    .slot = QuerySlot::Inspections,
    .numbering = {"RECNO", "\\ihi.txt", "\\inb.txt", &NumberSeeds::inspection, true},
    .list = kInspectionList,
    .required = kInspectionRequired,
    .ofParcel = {.owner = inspection_box::kOwner, .location = inspection_box::kLocation},
    .parcel = {.question = "The Section, Block and Lot info cannot be found.\nPlease ensure the S-B-L format is "
                           "followed\nIf this is a new S-B-L, click 'Yes' to add this as a new record.",
               .needed = false,
               .warnsOfViolation = false,
               .noNotes = "The Section, Block and Lot info cannot be found.\nPlease ensure the S-B-L format is "
                          "followed"},
    .soughtWhole = kInspectionSoughtWhole,
    .noDate = kNoInspectionDate,
    .documentFilter = "Files (*.pdf)|*.pdf|All Files|*.*",
};

}  // namespace zelvo
