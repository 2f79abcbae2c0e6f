#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/recordset.h"
#include "form/session.h"

namespace zelvo {

/// A stored code as the screens show it; "--" where there is none.
std::string shownCode(std::string_view code, std::string (*table)(std::string_view));

/// The inspection types that the office's list of a category offers ("BLDG", "OTHER", "COMPLAINT"), behind "<select>";
/// nothing else for what is no category.
std::vector<std::string> inspectionTypes(const Session& session, std::string_view category);

/// The checklist of a category and a type, "\checklist\BLDG 02 Footing.rtf". What no file name can hold is "_" in it.
std::string checklistName(std::string_view category, std::string_view type);

}  // namespace zelvo
