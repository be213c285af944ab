#pragma once

#include <QWidget>
#include <span>

class QLabel;

namespace marvello {

class ResultsView;
class ctlBtn;

/// The coefficients of a compressor's performance polynomials, c1 to c10, to be read and copied.
class PolynomialsPage : public QWidget {
    Q_OBJECT

  public:
    explicit PolynomialsPage(QWidget* parent = nullptr);

    void setTexts(const QString& caption, const QString& copy);
    void clear();
    /// All coefficients are shown with an exponent and all the digits that tell them apart, such as
    /// "-1.2E+00".
    void addPolynomial(const QString& name, std::span<const double> coefficients);

  private:
    /// Columns and rows go to the clipboard, as text separated by tabs and as a table.
    void copy() const;

    QLabel* labelPoly_;
    ctlBtn* ctlCopyPolynomials_;
    ResultsView* lvPolynomials_;
};

}  // namespace marvello
