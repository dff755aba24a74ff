#pragma once
// Short ways for the RTF tests.
#include "platform/richtext/rtf.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>
#include <vector>

namespace velm::test {

/// The text of a piece of RTF; checks on the way that both readers say the same.
inline QString textOf(QByteArrayView rtf, RtfLoad load = RtfLoad::Whole) {
    RichText rich;
    const bool isRtf = readRtf(rtf, rich, load);
    QString plain;
    EXPECT_EQ(rtfToText(rtf, plain, load), isRtf);
    EXPECT_EQ(plain, rich.text());
    return plain;
}

/// The same of a body, inside the usual beginning.
inline QString bodyText(QByteArrayView body, RtfLoad load = RtfLoad::Whole) {
    return textOf("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset2 Symbol;}}" +
                      body.toByteArray() + "}",
                  load);
}

inline RichText richOf(QByteArrayView rtf, RtfLoad load = RtfLoad::Whole) {
    RichText rich;
    EXPECT_TRUE(readRtf(rtf, rich, load));
    return rich;
}

inline RichText richBody(QByteArrayView body, RtfLoad load = RtfLoad::Whole) {
    return richOf("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset2 Symbol;}}"
                  "{\\colortbl;\\red255\\green0\\blue16;\\red0\\green0\\blue255;}" +
                      body.toByteArray() + "}",
                  load);
}

/// All RTF files of the suite beside the project, when it is there.
inline std::vector<QByteArray> suiteFiles() {
    std::vector<QByteArray> files;
    QDirIterator paths(QStringLiteral(VELM_SOURCE_DIR "/../shared/rtf-suite"), {QStringLiteral("*.rtf")}, QDir::Files,
                       QDirIterator::Subdirectories);
    while (paths.hasNext()) {
        QFile file(paths.next());
        if (file.open(QIODevice::ReadOnly))
            files.push_back(file.readAll());
    }
    return files;
}

} // namespace velm::test
