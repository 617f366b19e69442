#include "ui/widgets/Tastatur.h"

#include <QKeyEvent>
#include <QWidget>

namespace dv::ui {

namespace {

class EnterFilter : public QObject {
  public:
    EnterFilter(QObject* eltern, std::function<void()> tu) : QObject(eltern), tu_(std::move(tu)) {}

  protected:
    bool eventFilter(QObject* objekt, QEvent* ereignis) override {
        if (ereignis->type() == QEvent::KeyPress) {
            const int taste = static_cast<QKeyEvent*>(ereignis)->key();
            if (taste == Qt::Key_Return || taste == Qt::Key_Enter) {
                tu_();
                return true;
            }
        }
        return QObject::eventFilter(objekt, ereignis);
    }

  private:
    std::function<void()> tu_;
};

}  // namespace

void beiEnter(QWidget& feld, std::function<void()> tu) {
    feld.installEventFilter(new EnterFilter(&feld, std::move(tu)));
}

}  // namespace dv::ui
