#include "workspace/WindowTexts.h"

#include <QRegularExpression>

#include "data/Globals.h"

namespace marvello {

QString dictionaryText(const QString& key) {
    try {
        return fromCore(gApplication().DictionaryRead(toCore(key)));
    } catch (const UnknownTextKey&) {
        return key;
    }
}

QString dictionaryTextIfAny(const QString& key) {
    try {
        return fromCore(gApplication().DictionaryRead(toCore(key)));
    } catch (const UnknownTextKey&) {
        return {};
    }
}

QString withoutAccessKey(QString text) {
    static const QRegularExpression accessKey(QStringLiteral("\\(&.\\)|&"));
    return text.remove(accessKey);
}

QString filled(QString text, const QStringList& arguments) {
    for (qsizetype i = 0; i < arguments.size(); ++i)
        text.replace(QStringLiteral("{%1}").arg(i), arguments[i]);
    return text;
}

}  // namespace marvello
