#pragma once

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace marvello::testing {

/// What the file of an export holds, read by the parsers of Python: see readExport.py.
inline QJsonObject readExport(const QString& path) {
    QProcess python;
    python.start(QStringLiteral("python3"),
                 {QStringLiteral(MARVELLO_SOURCE_FOLDER "/tests/support/readExport.py"), path});
    EXPECT_TRUE(python.waitForFinished()) << "python3 is missing";
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    return QJsonDocument::fromJson(python.readAllStandardOutput()).object();
}

inline QJsonArray rowsOf(const QJsonObject& file) { return file[QStringLiteral("rows")].toArray(); }
inline QJsonArray fieldsOf(const QJsonObject& file) { return file[QStringLiteral("fields")].toArray(); }

/// A JSON value as text, for comparisons that tell what differs.
inline std::string shown(const QJsonArray& array) {
    return QJsonDocument(array).toJson(QJsonDocument::Compact).toStdString();
}

}  // namespace marvello::testing
