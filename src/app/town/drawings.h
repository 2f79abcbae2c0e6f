#pragma once

#include <string>

namespace zelvo {

// The town's pictures, drawn here so that none has to be brought along: bitmap files in one ink on white.

std::string townSeal();         ///< three quarters of an inch across
std::string signatureBitmap();  ///< of the code enforcement officer, two inches wide
std::string housePhotograph();  ///< stands for the photographs that are attached to records

}  // namespace zelvo
