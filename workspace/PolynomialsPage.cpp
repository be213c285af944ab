#include "workspace/PolynomialsPage.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "controls/Icons.h"
#include "controls/NumberText.h"
#include "controls/ResultsView.h"
#include "controls/ctlBtn.h"
#include "workspace/CopiedTable.h"

namespace marvello {

PolynomialsPage::PolynomialsPage(QWidget* parent) : QWidget(parent) {
    labelPoly_ = new QLabel(this);
    labelPoly_->setObjectName(QStringLiteral("labelPoly"));
    labelPoly_->setWordWrap(true);
    ctlCopyPolynomials_ = new ctlBtn(this);
    ctlCopyPolynomials_->setObjectName(QStringLiteral("ctlCopyPolynomials"));
    ctlCopyPolynomials_->setIcon(icon(QStringLiteral("copy")));
    lvPolynomials_ = new ResultsView(this);
    lvPolynomials_->setObjectName(QStringLiteral("lvPolynomials"));
    auto* head = new QHBoxLayout;
    head->setContentsMargins(16, 10, 12, 10);
    head->setSpacing(16);
    head->addWidget(labelPoly_, 1);
    head->addWidget(ctlCopyPolynomials_);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addLayout(head);
    column->addWidget(lvPolynomials_, 1);
    connect(ctlCopyPolynomials_, &ctlBtn::clicked, this, &PolynomialsPage::copy);
    connect(lvPolynomials_, &ResultsView::copyRequested, this, &PolynomialsPage::copy);
}

void PolynomialsPage::setTexts(const QString& caption, const QString& copy) {
    labelPoly_->setText(caption);
    ctlCopyPolynomials_->setText(copy);
    lvPolynomials_->setAccessibleName(caption);
}

void PolynomialsPage::clear() {
    lvPolynomials_->clear();
    ctlCopyPolynomials_->setEnabled(false);
}

void PolynomialsPage::addPolynomial(const QString& name, std::span<const double> coefficients) {
    if (lvPolynomials_->columnKeys().isEmpty()) {
        std::vector<ResultsView::Column> columns{{QStringLiteral("polynomial"), QString(), QString()}};
        for (std::size_t i = 1; i <= coefficients.size(); ++i) {
            const QString text = QStringLiteral("c%1").arg(i);
            columns.push_back({text, text, QString()});
        }
        lvPolynomials_->setColumns(columns);
    }
    QStringList values;
    for (const double coefficient : coefficients) values += exponentText(coefficient);
    lvPolynomials_->addRow({name, name, QString(), QString(), values});
    lvPolynomials_->fitColumns();
    ctlCopyPolynomials_->setEnabled(true);
}

void PolynomialsPage::copy() const {
    CopiedTable table{lvPolynomials_->columnTexts(), {}, 1};
    QString text;
    for (const QString& column : table.columns) text += column + u'\t';
    const QString lineEnd = QStringLiteral("\r\n");
    if (!text.isEmpty()) text += lineEnd;
    for (int row = 0; row < lvPolynomials_->rowCount(); ++row) {
        table.rows += lvPolynomials_->rowTexts(row);
        text += table.rows.back().join(u'\t') + lineEnd;
    }
    copyTable(text, table);
}

}  // namespace marvello
