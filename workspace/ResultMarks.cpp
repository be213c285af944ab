#include "workspace/ResultMarks.h"

#include "controls/Marks.h"
#include "workspace/WindowTexts.h"

namespace marvello {

QString markOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::possible:
            return mark::possible;
        case Verdict::possibleWithWarnings:
            return mark::withWarnings;
        case Verdict::notPossible:
            break;
    }
    return mark::notPossible;
}

QString markOf(PointState state) {
    if (state == PointState::ok) return markOf(Verdict::possible);
    return markOf(state == PointState::warning ? Verdict::possibleWithWarnings : Verdict::notPossible);
}

QString markOf(Severity severity) {
    switch (severity) {
        case Severity::error:
            return mark::error;
        case Severity::attention:
            return mark::attention;
        case Severity::information:
            break;
    }
    return mark::information;
}

QString markText(const QString& mark) { return dictionaryTextIfAny(QStringLiteral("general.") + mark); }

}  // namespace marvello
