// What the documentation tells of the house, against the house: whatever it names is there, and no room is left out.
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

QDir project() {
    return QDir(QStringLiteral(VELM_SOURCE_DIR));
}

QString textOf(const QString& path) {
    QFile file(project().filePath(path));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Files that somebody has written, from the project's folder.
const QStringList& files() {
    static const QStringList all = [] {
        QStringList found;
        QDirIterator walk(project().path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (walk.hasNext()) {
            const QString path = project().relativeFilePath(walk.next());
            if (!path.startsWith(u"build/") && !path.startsWith(u".git/"))
                found << path;
        }
        return found;
    }();
    return all;
}

/// Every word of a source or a script, and every part of a path.
const QSet<QString>& words() {
    static const QSet<QString> all = [] {
        static const QRegularExpression word(u"\\w+"_s, QRegularExpression::UseUnicodePropertiesOption);
        static const QRegularExpression source(u"\\.(h|cpp|py|cmake|txt|json|sh|qrc)$|^(run|check|bench/mesure)$"_s);
        QSet<QString> found;
        for (const QString& path : files()) {
            for (const auto& match : word.globalMatch(path.contains(source) ? path + u' ' + textOf(path) : path))
                found.insert(match.captured());
        }
        return found;
    }();
    return all;
}

/// What stands between a pair of single back quotes.
QStringList named(const QString& document) {
    static const QRegularExpression piece(u"(?<!`)`([^`\\n]+)`(?!`)"_s);
    QStringList all;
    for (const auto& match : piece.globalMatch(document))
        all << match.captured(1);
    return all;
}

/// The plan of the rooms: the first block of the document.
QString roomsTold() {
    return textOf(u"docs/architecture.md"_s).section(u"```"_s, 1, 1);
}

} // namespace

TEST(Documentation, WhatTheArchitectureNamesIsInTheSources) {
    static const QRegularExpression word(u"[^\\W\\d]\\w*"_s, QRegularExpression::UseUnicodePropertiesOption);
    const QStringList all = named(textOf(u"docs/architecture.md"_s));
    ASSERT_GT(all.size(), 150);
    for (const QString& piece : all) {
        for (const auto& match : word.globalMatch(piece))
            EXPECT_TRUE(words().contains(match.captured())) << piece.toStdString();
    }
}

TEST(Documentation, FilesThatAreNamedAreThere) {
    static const QRegularExpression path(u"(?<![\\w/.-])(?:\\w+/)+\\w+\\.(?:h|cpp|py|md|sh|json)\\b"_s);
    for (const QString& document : {u"docs/architecture.md"_s, u"README.md"_s, u"langues/README.md"_s}) {
        const QString text = textOf(document);
        EXPECT_FALSE(text.isEmpty()) << document.toStdString();
        for (const auto& match : path.globalMatch(text))
            EXPECT_TRUE(files().contains(match.captured()))
                << document.toStdString() << ": " << match.captured().toStdString();
    }
}

TEST(Documentation, EachRoomIsInThePlanAndThere) {
    static const QRegularExpression room(u"^(?:platform|core|document|search|collection|outil|shell)(?:/\\w+)*/"_s);
    QSet<QString> rooms;
    for (const QString& file : files()) {
        if (file.endsWith(u".cpp"))
            rooms.insert(room.match(file).captured());
    }
    rooms.remove(QString());
    ASSERT_GT(rooms.size(), 15);
    for (const QString& path : std::as_const(rooms))
        EXPECT_TRUE(roomsTold().contains(path.section(u'/', -2))) << path.toStdString();

    static const QRegularExpression line(u"^(  )?(\\w+)/ "_s, QRegularExpression::MultilineOption);
    QString above;
    for (const auto& match : line.globalMatch(roomsTold())) {
        const bool inside = !match.captured(1).isEmpty();
        if (!inside)
            above = match.captured(2) + u'/';
        const QString path = inside ? above + match.captured(2) : match.captured(2);
        EXPECT_TRUE(project().exists(path)) << path.toStdString();
    }
}

} // namespace velm
