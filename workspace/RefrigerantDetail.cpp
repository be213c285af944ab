#include "workspace/RefrigerantDetail.h"

#include <QStringList>

#include "controls/NumberText.h"
#include "results/RefrigerantTexts.h"
#include "workspace/WindowTexts.h"

namespace marvello {

RowDetail refrigerantDetail(const QString& refrigerant, UnitSystem units) {
    const RefrigerantFacts facts = factsOf(toCore(refrigerant));
    // A catalogue from before there were facts has no texts for them either.
    if (facts == RefrigerantFacts()) return {QString::fromLatin1(unknownFact), {}};
    const NumberMarks marks = marksOf(QLocale());
    QStringList lines{refrigerant};
    for (const TechnicalEntry& fact : factEntries(facts, units, marks))
        lines += fromCore(fact.caption) + QStringLiteral(": ") + fromCore(fact.value);
    lines += dictionaryText(QStringLiteral("technicaldata.refrigerant.help"));
    return {fromCore(shortFacts(facts, marks)), lines.join(u'\n')};
}

}  // namespace marvello
