#include "workspace/frmpG.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

#include "controls/Look.h"
#include "controls/ProgressBar.h"
#include "controls/ctlBtn.h"
#include "data/Session.h"
#include "workspace/WindowTexts.h"

namespace marvello {

namespace {

constexpr int dotInterval = 400;  // milliseconds
constexpr int maxDots = 3;
constexpr int alpha = 235;  // of 255: the list below is seen to wait

}  // namespace

frmpG::frmpG(QWidget* parent)
    : DialogFrame(dictionaryText(QStringLiteral("frmpg.caption")), parent),
      Label1_(new QLabel(dictionaryText(QStringLiteral("frmpg.label1.caption")), this)),
      LabelDots_(new QLabel(this)),
      percent_(new QLabel(this)),
      pg_(new ProgressBar(this)),
      btnAbort_(new ctlBtn(dictionaryText(QStringLiteral("frmpg.btnabort.caption")), false, this)),
      Timer1_(new QTimer(this)) {
    setObjectName(QStringLiteral("frmpG"));
    setWindowModality(Qt::ApplicationModal);
    Label1_->setObjectName(QStringLiteral("Label1"));
    LabelDots_->setObjectName(QStringLiteral("LabelDots"));
    pg_->setObjectName(QStringLiteral("pg"));
    pg_->setAccessibleName(Label1_->text());
    btnAbort_->setObjectName(QStringLiteral("btnAbort"));
    LabelDots_->setFixedWidth(16);
    percent_->setStyleSheet(QStringLiteral("color: %1").arg(Look::current().muted.name()));
    auto* line = new QHBoxLayout;
    line->setSpacing(0);
    line->addWidget(Label1_);
    line->addWidget(LabelDots_);
    line->addStretch(1);
    line->addWidget(percent_);
    body()->setSpacing(10);
    body()->addLayout(line);
    body()->addWidget(pg_);
    addButton(btnAbort_);
    connect(btnAbort_, &ctlBtn::clicked, this, &frmpG::abort);
    connect(Timer1_, &QTimer::timeout, this, &frmpG::showDots);
    Timer1_->start(dotInterval);
    Transparency(alpha);
    showPercent(0);
}

void frmpG::setPercent(int percent) {
    constexpr int frame = 16;  // milliseconds: more often, no one sees it
    if (lastShown_.isValid() && lastShown_.elapsed() < frame && percent < 100) return;
    lastShown_.start();
    showPercent(percent);
}

void frmpG::showPercent(int percent) {
    pg_->SetValue(percent);
    percent_->setText(QStringLiteral("%1 %").arg(pg_->Value()));
}

void frmpG::abort() {
    btnAbort_->setEnabled(false);
    AbortRequested() = true;
    emit aborted();
}

void frmpG::reject() { abort(); }

void frmpG::showDots() {
    const auto dots = LabelDots_->text().size();
    LabelDots_->setText(dots < maxDots ? QString(dots + 1, u'.') : QString());
}

}  // namespace marvello
