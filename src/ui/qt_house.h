#pragma once

#include "form/desk.h"
#include "ui/printing/qt_printing.h"
#include "ui/qt_face.h"
#include "ui/qt_ports.h"

namespace zelvo {

/// The windows and the real outside world, put together: what main makes once. Needs a QApplication in its house style
/// (applyHouseStyle); session and screens must outlive it. Screens are closed or swept before it goes.
class QtHouse {
 public:
  QtHouse(Session& session, Screens& screens)
      : face(session, screens),
        messages(face),
        pickers(face),
        desktop(face),
        printing(face, messages, pickers, desktop.temporaryFolder()),
        clock(face),
        desk{session, messages, pickers, printing, desktop, clock, face, screens} {
    screens.attach(desk);
  }

  QtFace face;
  QtMessages messages;
  QtPickers pickers;
  QtDesktop desktop;
  QtPrinting printing;
  QtClock clock;
  Desk desk;
};

}  // namespace zelvo
