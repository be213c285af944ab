#include "reports/SectionPages.h"

#include <QPainter>
#include <algorithm>

#include "controls/CoreText.h"
#include "controls/Icons.h"
#include "reports/PaintedDrawing.h"
#include "reports/TablesPage.h"

namespace marvello {

namespace {

constexpr double bodyText = 8.5;  // points

/// What the pages of the sections share between head and foot.
class SectionPaper : public PaperPage {
  public:
    using PaperPage::PaperPage;

  protected:
    void paintHeading(const QString& words) {
        text({side, bodyTop, right() - side, lineStep}, Qt::AlignLeft | Qt::AlignVCenter, bodyText * point,
             words, headingBlue, QFont::Medium);
    }
    /// Paints a drawing over the whole width. Returns where it ends.
    double paintAcross(const Drawing& drawing, double top) {
        const double scale = (right() - side) / drawing.width;
        painter_.save();
        painter_.translate(side, top);
        painter_.scale(scale, scale);
        paintDrawing(painter_, drawing);
        painter_.restore();
        return top + drawing.height * scale;
    }
};

class MapPaper : public SectionPaper {
  public:
    using SectionPaper::SectionPaper;

    void paint(const ReportMap& map) {
        paintHeading(map.heading);
        constexpr double height = 150 * mm;
        paintEnvelope(map.envelope, {side, bodyTop + 1.5 * lineStep, right() - side, height}, 5);
    }
};

class CyclePaper : public SectionPaper {
  public:
    using SectionPaper::SectionPaper;

    void paint(const ReportCycle& cycle) {
        paintHeading(cycle.heading);
        const double states = paintAcross(cycle.diagram, bodyTop + 1.5 * lineStep) + lineStep;
        paintFigures(cycle, paintStates(cycle, states) + lineStep);
    }

  private:
    /// Returns where the table ends.
    double paintStates(const ReportCycle& cycle, double top) {
        const double names = 58 * mm;
        const double columns = std::max(1.0, static_cast<double>(cycle.columns.size() - 1));
        const double cell = (right() - side - names) / columns;
        const auto paintRow = [&](const QStringList& row, const QColor& colour) {
            for (qsizetype i = 0; i < row.size(); ++i) {
                const double left = i == 0 ? side : side + names + cell * static_cast<double>(i - 1);
                text({left, top, (i == 0 ? names : cell) - 1 * mm, lineStep},
                     (i == 0 ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter, 7.5 * point, row[i],
                     colour);
            }
            top += lineStep;
        };
        paintRow(cycle.columns, quiet);
        rule(top - hairline, hairline, frame, side, right());
        for (const QStringList& state : cycle.states) {
            paintRow(state, ink);
            rule(top - hairline, hairline, faint, side, right());
        }
        return top;
    }

    void paintFigures(const ReportCycle& cycle, double top) {
        const double between = 8 * mm;
        const double width = (right() - side - between) / 2;
        for (std::size_t i = 0; i < cycle.figures.size(); ++i) {
            const QRectF box(side + static_cast<double>(i % 2) * (width + between),
                             top + static_cast<double>(i / 2) * lineStep, width, lineStep);
            const double value = 26 * mm;
            text(box.adjusted(0, 0, -value, 0), Qt::AlignLeft | Qt::AlignVCenter, 7.5 * point,
                 fromCore(cycle.figures[i].caption), quiet);
            text({box.right() - value, box.top(), value, box.height()}, Qt::AlignRight | Qt::AlignVCenter,
                 7.5 * point, fromCore(cycle.figures[i].value), ink);
            rule(box.bottom() - hairline, hairline, faint, box.left(), box.right());
        }
    }
};

class PartLoadPaper : public SectionPaper {
  public:
    using SectionPaper::SectionPaper;

    void paint(const ReportPartLoad& load) {
        const double width = right() - side;
        paintHeading(load.heading);
        text({side, bodyTop + lineStep, width, lineStep}, Qt::AlignLeft | Qt::AlignVCenter, 7.5 * point,
             load.full, ink);
        double top = paintAcross(load.chart, bodyTop + 2.5 * lineStep) + lineStep;
        cell_ = (width - labels) / std::max(1.0, static_cast<double>(load.columns.size()));
        step_ = std::min(lineStep, (footTop() - top) / (lines(load) + 1));
        top = paintHeads(load, top);
        for (const ReportPartLoad::Table& table : load.tables) top = paintTable(table, top);
    }

  private:
    static constexpr double labels = 34 * mm;
    static constexpr double markRoom = 5 * mm;

    static double lines(const ReportPartLoad& load) {
        double count = 2;
        for (const ReportPartLoad::Table& table : load.tables) {
            count += 1.5;
            for (const ReportPartLoad::Row& row : table.rows) count += row.sentence.isEmpty() ? 1 : 2;
        }
        return count;
    }

    double size() const { return 7.5 * point * step_ / lineStep; }

    QRectF cellBox(std::size_t column, double top) const {
        return {side + labels + cell_ * static_cast<double>(column), top, cell_ - 1 * mm, step_};
    }

    double paintHeads(const ReportPartLoad& load, double top) {
        for (std::size_t i = 0; i < load.columns.size(); ++i) {
            const QRectF box = cellBox(i, top);
            text(box, Qt::AlignRight | Qt::AlignVCenter, size(), load.columns[i].name, quiet);
            text(box.translated(0, step_), Qt::AlignRight | Qt::AlignVCenter, size(), load.columns[i].unit,
                 quiet);
        }
        rule(top + 2 * step_ - hairline, hairline, frame, side, right());
        return top + 2 * step_;
    }

    /// Returns where the table ends.
    double paintTable(const ReportPartLoad::Table& table, double top) {
        text({side, top + step_ / 4, right() - side, step_}, Qt::AlignLeft | Qt::AlignVCenter, size(),
             table.title, ink, QFont::Medium);
        top += 1.5 * step_;
        for (const ReportPartLoad::Row& row : table.rows) {
            const double mark = 0.6 * step_;
            paintMarkOnPaper(painter_, {side, top + (step_ - mark) / 2, mark, mark}, row.mark);
            text({side + markRoom, top, labels - markRoom, step_}, Qt::AlignLeft | Qt::AlignVCenter, size(),
                 row.label, ink);
            for (qsizetype i = 0; i < row.values.size(); ++i)
                text(cellBox(static_cast<std::size_t>(i), top), Qt::AlignRight | Qt::AlignVCenter, size(),
                     row.values[i], ink);
            top += step_;
            if (!row.sentence.isEmpty()) {
                text({side + markRoom, top - step_ / 8, right() - side - markRoom, step_},
                     Qt::AlignLeft | Qt::AlignVCenter, size(), row.sentence, quiet);
                top += step_;
            }
            rule(top - hairline, hairline, faint, side, right());
        }
        return top;
    }

    double cell_ = 0;
    double step_ = lineStep;
};

/// A page with head and foot, and the content of the section between them.
class SectionPage : public PaperPage {
  public:
    SectionPage(QPainter& painter, const QSizeF& paper, const ReportContent& content)
        : PaperPage(painter, paper, content), paper_(paper) {}

    void paint(int page) {
        const ReportSection& section = content_.sections.at(static_cast<std::size_t>(page - 2));
        paintHead(section.title);
        std::visit([this](const auto& part) { paintPart(part); }, section.content);
        paintFoot(page);
    }

  private:
    void paintPart(const ReportTables& tables) { TablesPage(painter_, paper_, content_).paint(tables); }
    void paintPart(const ReportMap& map) { MapPaper(painter_, paper_, content_).paint(map); }
    void paintPart(const ReportCycle& cycle) { CyclePaper(painter_, paper_, content_).paint(cycle); }
    void paintPart(const ReportPartLoad& load) { PartLoadPaper(painter_, paper_, content_).paint(load); }

    QSizeF paper_;
};

}  // namespace

void paintSection(QPainter& painter, const QSizeF& paper, const ReportContent& content, int page) {
    SectionPage(painter, paper, content).paint(page);
}

}  // namespace marvello
