#include "ui/printing/character_map.h"

#include <algorithm>

#include "ui/printing/pdf_file.h"

namespace zelvo {

std::string characterMap(const std::vector<PdfCode>& codes, int bytes) {
  constexpr std::size_t mostALot = 100;
  const std::string last(static_cast<std::size_t>(bytes) * 2, 'F');
  std::string map =
      "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n/CIDSystemInfo <</Registry (Adobe) /Ordering "
      "(UCS) /Supplement 0>> def\n/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n1 begincodespacerange\n<" +
      std::string(last.size(), '0') + "> <" + last + ">\nendcodespacerange\n";
  for (std::size_t first = 0; first < codes.size(); first += mostALot) {
    const std::size_t end = std::min(first + mostALot, codes.size());
    map += std::to_string(end - first) + " beginbfchar\n";
    for (std::size_t i = first; i < end; ++i) {
      map += '<';
      appendPdfHex(map, codes[i].first, 2 * bytes);
      map += "> <";
      appendPdfCharacter(map, codes[i].second);
      map += ">\n";
    }
    map += "endbfchar\n";
  }
  return map + "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";
}

}  // namespace zelvo
