#pragma once

#include <string_view>

#include "data/mdb.h"
#include "documents/labels/label_printer.h"
#include "documents/letter.h"
#include "form/desk.h"

namespace zelvo {

/// Everything between the store and the faces, put together: it makes every screen known by its name, and holds what
/// record screens share, the parcel registry, the letters and the labels. Must outlive the screens of its desk.
class House {
 public:
  explicit House(Desk& desk);
  House(const House&) = delete;
  House& operator=(const House&) = delete;

 private:
  void learnDocumentScreens(Screens& screens);
  void learnRecordScreens(Screens& screens);

  mdb parcels_;
  LetterPrinter letters_;
  LabelSettings labels_;
  LabelPrinter labelPrinter_;
};

}  // namespace zelvo
