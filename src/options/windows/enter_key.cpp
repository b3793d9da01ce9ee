#include "options/windows/enter_key.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QLineEdit>

namespace norvane {

namespace {

class EnterFilter : public QObject
{
public:
    EnterFilter(QLineEdit *box, QAbstractButton *button) : QObject(box), m_button(button)
    {
        box->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            const int key = static_cast<QKeyEvent *>(event)->key();
            if (key == Qt::Key_Return || key == Qt::Key_Enter) {
                m_button->click();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }

private:
    QAbstractButton *m_button;
};

} // namespace

void pressOnEnter(QLineEdit *box, QAbstractButton *button)
{
    new EnterFilter(box, button);
}

} // namespace norvane
