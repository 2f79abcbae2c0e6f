#pragma once

#include <span>
#include <string_view>

namespace zelvo {

/// A field of the registry and the box Text1(n) that shows it, on the screens that show one parcel whole. Boxes 2 to 6
/// are the parts of the key.
struct ParcelField {
  int box;
  std::string_view column;
};

namespace parcelBox {
inline constexpr int owner = 7, location = 8, contact = 9, mailing = 10, city = 11, state = 12, zip = 13, gislink = 14,
                     east = 15, north = 16, permit = 17, history = 18, notes = 19;
}  // namespace parcelBox

inline constexpr ParcelField kParcelFields[] = {
    {parcelBox::owner, "ASSOC"},      {parcelBox::location, "LOCN1"},  {parcelBox::contact, "CONTACT"},
    {parcelBox::mailing, "MAILING"},  {parcelBox::city, "CITY"},       {parcelBox::state, "STATE"},
    {parcelBox::zip, "ZIP"},          {parcelBox::gislink, "GISLINK"}, {parcelBox::east, "EASTCOORD"},
    {parcelBox::north, "NORTHCOORD"}, {parcelBox::permit, "PERMIT"},   {parcelBox::history, "HISTORICAL"},
    {parcelBox::notes, "NOTES"},
};

}  // namespace zelvo
