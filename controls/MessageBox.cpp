#include "controls/MessageBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <utility>

#include "controls/DialogFrame.h"
#include "controls/Icons.h"
#include "controls/ctlBtn.h"

namespace marvello {

namespace {

MessageBox::Handler& handler() {
    static MessageBox::Handler instance;
    return instance;
}

/// The mark at the left of a box, drawn at the screen's own resolution.
class MarkLabel : public QWidget {
  public:
    MarkLabel(QString name, QWidget* parent) : QWidget(parent), name_(std::move(name)) {
        setFixedSize(28, 28);
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintMark(painter, rect(), name_);
    }

  private:
    QString name_;
};

}  // namespace

MessageBox::Handler MessageBox::setHandler(Handler fresh) {
    return std::exchange(handler(), std::move(fresh));
}

void MessageBox::show(QWidget* parent, Mark mark, const QString& text) {
    if (handler()) {
        handler()(mark, text);
        return;
    }
    DialogFrame box(QApplication::applicationDisplayName(),
                    parent ? parent->window() : QApplication::activeWindow());
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    if (mark != Mark::plain) {
        const auto name =
            mark == Mark::critical ? QStringLiteral("msgerror") : QStringLiteral("msginformation");
        row->addWidget(new MarkLabel(name, &box), 0, Qt::AlignTop);
    }
    auto* label = new QLabel(text, &box);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumHeight(28);
    row->addWidget(label, 1);
    box.body()->addLayout(row);

    auto* ok = new ctlBtn(QStringLiteral("OK"), true, &box);
    QObject::connect(ok, &ctlBtn::clicked, &box, &QDialog::accept);
    box.addButton(ok);
    ok->setFocus();
    box.setAccessibleDescription(text);
    box.exec();
}

}  // namespace marvello
