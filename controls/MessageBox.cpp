#include "controls/MessageBox.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <utility>

#include "controls/DialogFrame.h"
#include "controls/Icons.h"
#include "controls/Marks.h"
#include "controls/ctlBtn.h"

namespace marvello {

namespace {

MessageBox::Handler& handler() {
    static MessageBox::Handler instance;
    return instance;
}

/// The mark on the left of a box, drawn at the screen's own resolution.
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

void addText(DialogFrame& box, const QString& markName, const QString& text) {
    auto* row = new QHBoxLayout;
    row->setSpacing(14);
    if (!markName.isEmpty()) row->addWidget(new MarkLabel(markName, &box), 0, Qt::AlignTop);
    auto* label = new QLabel(text, &box);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    label->setMinimumHeight(28);
    row->addWidget(label, 1);
    box.body()->addLayout(row);
    box.setAccessibleDescription(text);
}

QWidget* ownerOf(QWidget* parent) { return parent ? parent->window() : QApplication::activeWindow(); }

}  // namespace

MessageBox::Handler MessageBox::setHandler(Handler fresh) {
    return std::exchange(handler(), std::move(fresh));
}

void MessageBox::show(QWidget* parent, Mark mark, const QString& text) {
    if (handler()) {
        handler()(mark, text);
        return;
    }
    DialogFrame box(QApplication::applicationDisplayName(), ownerOf(parent));
    QString markName;
    if (mark != Mark::plain) markName = mark == Mark::critical ? mark::error : mark::information;
    addText(box, markName, text);
    auto* ok = new ctlBtn(QStringLiteral("OK"), true, &box);
    QObject::connect(ok, &ctlBtn::clicked, &box, &QDialog::accept);
    box.addButton(ok);
    ok->setFocus();
    box.exec();
}

bool MessageBox::ask(QWidget* parent, const QString& question, const QString& yes, const QString& no) {
    DialogFrame box(QApplication::applicationDisplayName(), ownerOf(parent));
    addText(box, mark::attention, question);
    auto* refuse = new ctlBtn(no, false, &box);
    auto* yesButton = new ctlBtn(yes, true, &box);
    QObject::connect(refuse, &ctlBtn::clicked, &box, &QDialog::reject);
    QObject::connect(yesButton, &ctlBtn::clicked, &box, &QDialog::accept);
    box.addButton(refuse);
    box.addButton(yesButton);
    refuse->setFocus();
    return box.exec() == QDialog::Accepted;
}

}  // namespace marvello
