#pragma once

#include <QTextCursor>
#include <QTextDocument>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "documents/document_reader.h"
#include "ui/writing/qt_letter.h"

namespace zelvo::testing {

/// A letter with all that an office's letters have, read back once, so that it is as files are.
inline Document fullLetter() {
  return readDocument(
      "{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}{\\f1 Courier New;}}{\\colortbl;\\red200\\green0\\blue0;}"
      "\\paperw12240\\paperh15840\\margl1080\\margr1080{\\header Town\\tab \\chpgn\\par}{\\footer End\\par}"
      "\\pard\\qc\\fs32\\b NOTICE\\b0\\par\\pard\\par"
      "\\pard\\fi-360\\li720\\tqr\\tldot\\tx9000\\tqdec\\tx5000 1.\\tab \\f1\\cf1 caf\\'e9\\line \\u8212?\\tab "
      "{\\super 2}{\\sub n}{\\strike gone}{\\caps all}\\par"
      "\\trowd\\trgaph108\\trleft-108\\clbrdrt\\brdrs\\brdrw10\\cellx3000\\clvertalc\\cellx6000\\pard\\intbl one\\par "
      "two\\cell\\qr 3\\cell\\row\\trowd\\trgaph108\\cellx4000\\pard\\intbl wide\\cell\\row"
      "\\pard\\par\\trowd\\cellx2000\\pard\\intbl x\\cell\\row\\pard\\sl360\\slmult1\\sb120 Page "
      "{\\field{\\*\\fldinst PAGE}{\\fldrslt 1}} behind {\\pict\\pngblip\\picwgoal300\\pichgoal300 "
      "89504e470d0a1a0a0000000d494844520000000100000001080000000"
      "03a7e9b550000000a49444154789c63600000000200014821bc330000000049454e44ae426082}\\par"
      "\\page\\pard last\\par\\sect\\sectd\\lndscpsxn\\pard turned\\par}");
}

/// Letters as they may come into the editor.
inline std::vector<std::pair<std::string, Document>> sampleLetters() {
  return {{"everything", fullLetter()},
          {"nothing", readDocument("{\\rtf1}")},
          {"a table alone", readDocument("{\\rtf1\\trowd\\cellx900\\pard\\intbl a\\cell\\row}")},
          {"a table in a cell", readDocument("{\\rtf1\\trowd\\cellx5000\\pard\\intbl\\itap2 a\\nestcell b\\nestcell"
                                             "{\\*\\nesttableprops\\trowd\\cellx1000\\cellx2000\\nestrow}"
                                             "\\pard\\intbl\\itap1 c\\cell\\row\\pard end\\par}")},
          {"no end", readDocument("{\\rtf1 a\\par\\par b")}};
}

/// A letter under the hands of somebody who types, erases, pastes and breaks lines anywhere.
struct Hands {
  explicit Hands(const Document& letter) : body(letter.body) {
    text.documentLayout();  // a text without one tells of no changes
    QObject::connect(&text, &QTextDocument::contentsChange, &text,
                     [this](int from, int, int added) { converter.noteChange(text, from, added); });
    converter.show(letter, text);
  }
  void take() { makeChange(body, converter.takeChange(text)); }
  void act(QTextCursor& cursor) {
    cursor.setPosition(any(text.characterCount()));
    if (any(3) == 0)
      cursor.setPosition(any(text.characterCount()), QTextCursor::KeepAnchor);
    switch (any(6)) {
      case 0:
        return cursor.insertBlock();
      case 1:
        return cursor.deletePreviousChar();
      case 2:
        return cursor.deleteChar();
      case 3:
        return cursor.insertText(QStringLiteral("one\ntwo\nthree"));
      default:
        return cursor.insertText(QStringLiteral("x"));
    }
  }
  int any(int below) { return static_cast<int>(chance() % static_cast<unsigned>(below)); }

  std::minstd_rand chance{7};
  QTextDocument text;
  QtLetter converter;
  std::vector<Block> body;
};

}  // namespace zelvo::testing
