#include "workspace/WindowTexts.h"

#include <QRegularExpression>

#include "data/DictionaryTexts.h"
#include "data/Session.h"

namespace marvello {

QString dictionaryText(const QString& key) { return fromCore(dictionaryText(std::string_view(toCore(key)))); }

QString dictionaryTextIfAny(const QString& key) {
    return fromCore(dictionaryTextIfAny(std::string_view(toCore(key))));
}

QString withoutAccessKey(QString text) {
    static const QRegularExpression accessKey(QStringLiteral("\\(&.\\)|&"));
    return text.remove(accessKey);
}

QLocale userLocale() {
    const QString language = fromCore(gApplication().User().language).left(2).toLower();
    // The catalogue calls Chinese by its country.
    return QLocale(language == u"cn"   ? QStringLiteral("zh_CN")
                   : language == u"en" ? QStringLiteral("en_GB")
                                       : language);
}

QString reasonText(const QString& reason) {
    const QString known = dictionaryTextIfAny(reason);
    return known.isEmpty() ? reason : known;
}

// In one pass, so that an argument may hold the sign of another.
QString filled(const QString& text, const QStringList& arguments) {
    static const QRegularExpression place(QStringLiteral("\\{(\\d+)\\}"));
    QString result;
    qsizetype end = 0;
    for (auto places = place.globalMatch(text); places.hasNext();) {
        const QRegularExpressionMatch found = places.next();
        result += text.mid(end, found.capturedStart() - end) +
                  arguments.value(found.captured(1).toInt(), found.captured());
        end = found.capturedEnd();
    }
    return result + text.mid(end);
}

}  // namespace marvello
