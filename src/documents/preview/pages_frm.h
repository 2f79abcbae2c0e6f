#pragma once

#include "documents/preview/page_view.h"
#include "documents/print_delivery.h"
#include "form/screen.h"

namespace zelvo {

/// The preview: the pages of a document as they will be printed, to be looked at before paper is used. Printed from
/// here, or saved as a PDF file.
class PagesFrm : public Screen {
 public:
  PagesFrm(Desk& desk, const PrintRequest& request);

  Button cmdFirst{*this, "cmdFirst", "|<"};
  Button cmdPrev{*this, "cmdPrev", "<"};
  Label lblPage{*this, "lblPage"};
  Button cmdNext{*this, "cmdNext", ">"};
  Button cmdLast{*this, "cmdLast", ">|"};
  Label lblZoom{*this, "lblZoom", "Zoom"};
  Combo cboZoom{*this, "cboZoom"};
  Button cmdPrint{*this, "cmdPrint", "&Print"};
  Button cmdPdf{*this, "cmdPdf", "Save as P&DF.."};
  Button cmdClose{*this, "cmdClose", "&Close"};
  PageView Pages1{*this, "Pages1"};

 private:
  void bindButtons();
  void turnTo(int page);
  void showPage();
  void chooseZoom();
  void cmdPrint_Click();
  void cmdPdf_Click();

  PrintRequest request_;
};

}  // namespace zelvo
