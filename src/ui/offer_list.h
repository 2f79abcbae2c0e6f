#pragma once

#include <QCompleter>
#include <QStringListModel>
#include <functional>
#include <string>
#include <vector>

class QLineEdit;

namespace zelvo {

/// What a box offers while it is typed into: a list that drops down below it and never takes a key that the typing
/// needs. The arrow keys walk through it, Enter and Tab go on with what stands in the box, Esc only closes the list.
class OfferList : public QCompleter {
 public:
  /// `taken` is told what stands in the box whenever an offer is put there.
  OfferList(QLineEdit& box, std::function<void(const QString&)> taken);

  /// The offers for what has just been typed; none closes the list.
  void show(const std::vector<std::string>& offers);

  bool eventFilter(QObject* target, QEvent* event) override;

 private:
  QLineEdit& box_;
  QStringListModel offers_;
};

}  // namespace zelvo
