#include "core/extensions.h"
#include "tests/support/outside_script.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <gtest/gtest.h>

using namespace velm;
using namespace Qt::Literals::StringLiterals;

namespace {

class ExtensionsTest : public testing::Test {
protected:
    QTemporaryDir folder;
    Extensions extensions{folder.filePath(u"data"_s)};

    static QString content(const QString& path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : u"no file"_s;
    }
    static QString line(const QString& path, const QString& key) {
        for (const QString& l : content(path).split(u'\n')) {
            if (l.startsWith(key + u'='))
                return l.sliced(key.size() + 1);
        }
        return u"no such line"_s;
    }
};

TEST_F(ExtensionsTest, TheThreeTypesBelongToTheProgramAndTheEditor) {
    const auto all = Extensions::associations(u"/opt/velm/"_s, u"/opt/editeur"_s);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all[0].valeur(), u"/opt/velm/velm2000 ^.CV2"_s);
    EXPECT_EQ(all[1].valeur(), u"/opt/velm/velm2000 ^.DV2"_s);
    EXPECT_EQ(all[2].valeur(), u"/opt/editeur/editeur ^.MV2"_s);
}

TEST_F(ExtensionsTest, AreWrittenAtTheFirstStart) {
    const auto result = extensions.registerAll(u"/opt/velm/"_s, u"/opt/editeur/"_s);
    EXPECT_TRUE(result.written);
    EXPECT_TRUE(result.errors.isEmpty());
    EXPECT_EQ(line(extensions.programEntryPath(), u"Exec"_s), u"\"/opt/velm/velm2000\" %f"_s);
    EXPECT_EQ(line(extensions.programEntryPath(), u"TryExec"_s), u"/opt/velm/velm2000"_s);
    EXPECT_EQ(line(extensions.programEntryPath(), u"MimeType"_s),
              u"application/x-velmorante-cv2;application/x-velmorante-dv2;"_s);
    EXPECT_EQ(line(extensions.programEntryPath(), u"X-Velmorante-DV2"_s), u"/opt/velm/velm2000 ^.DV2"_s);
    EXPECT_EQ(line(extensions.editorEntryPath(), u"Exec"_s), u"\"/opt/editeur/editeur\" %f"_s);
    EXPECT_EQ(line(extensions.editorEntryPath(), u"MimeType"_s), u"application/x-velmorante-mv2;"_s);
}

TEST_F(ExtensionsTest, ThePackageIsWellFormedAndNamesEachPattern) {
    Extensions::Descriptions labels;
    labels.criteres = u"Critères <de> \"recherche\" & co"_s;
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s, labels).written);
    QXmlStreamReader xml(content(extensions.packagePath()));
    QStringList patterns;
    QStringList comments;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"glob")
            patterns.append(xml.attributes().value(u"pattern"_s).toString());
        if (xml.isStartElement() && xml.name() == u"comment")
            comments.append(xml.readElementText());
    }
    EXPECT_FALSE(xml.hasError());
    EXPECT_EQ(patterns, (QStringList{u"*.cv2"_s, u"*.dv2"_s, u"*.mv2"_s}));
    EXPECT_EQ(comments.value(0), labels.criteres);
}

TEST_F(ExtensionsTest, AreNotTouchedWhenTheySayTheSame) {
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
    const QFileInfo before(extensions.packagePath());
    EXPECT_FALSE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
    EXPECT_EQ(QFileInfo(extensions.packagePath()).lastModified(), before.lastModified());
}

TEST_F(ExtensionsTest, AreRewrittenWhenTheProgramMoved) {
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
    EXPECT_TRUE(extensions.registerAll(u"/c"_s, u"/b"_s).written);
    EXPECT_EQ(line(extensions.programEntryPath(), u"TryExec"_s), u"/c/velm2000"_s);
    EXPECT_EQ(line(extensions.editorEntryPath(), u"TryExec"_s), u"/b/editeur"_s);
}

TEST_F(ExtensionsTest, AFileThatOnlyBeginsTheSameIsRewritten) {
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
    QFile file(extensions.programEntryPath());
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write("x");
    file.close();
    EXPECT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
    EXPECT_FALSE(extensions.registerAll(u"/a"_s, u"/b"_s).written);
}

TEST_F(ExtensionsTest, OddFolderNamesAreEscapedTwice) {
    ASSERT_TRUE(extensions.registerAll(u"/a b/50%/c\"d$e`f\\g"_s, u"/b"_s).errors.isEmpty());
    EXPECT_EQ(line(extensions.programEntryPath(), u"Exec"_s),
              u"\"/a b/50%%/c\\\\\"d\\\\$e\\\\`f\\\\\\\\g/velm2000\" %f"_s);
    EXPECT_EQ(line(extensions.programEntryPath(), u"TryExec"_s), u"/a b/50%/c\"d$e`f\\\\g/velm2000"_s);
}

TEST_F(ExtensionsTest, AFolderThatNoEntryCanHoldIsAnError) {
    const auto result = extensions.registerAll(u"/a\nExec=x"_s, u"/b"_s);
    EXPECT_EQ(result.errors.size(), 1);
    EXPECT_FALSE(QFile::exists(extensions.programEntryPath()));
    EXPECT_TRUE(QFile::exists(extensions.editorEntryPath()));
}

TEST_F(ExtensionsTest, ALabelCannotAddALine) {
    Extensions::Descriptions labels;
    labels.application = u" a\nExec=evil\\n"_s;
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s, labels).written);
    EXPECT_EQ(line(extensions.programEntryPath(), u"Name"_s), u"\\sa Exec=evil\\\\n"_s);
    EXPECT_EQ(line(extensions.programEntryPath(), u"Exec"_s), u"\"/a/velm2000\" %f"_s);
}

TEST_F(ExtensionsTest, WhatCannotBeWrittenIsSaid) {
    QFile file(folder.filePath(u"data"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.close();
    const auto result = extensions.registerAll(u"/a"_s, u"/b"_s);
    EXPECT_FALSE(result.written);
    EXPECT_EQ(result.errors.size(), 3);
}

TEST_F(ExtensionsTest, TheDesktopsIndexesAreRebuiltOnlyAfterAWrite) {
    test::ProcessusScript processes;
    ASSERT_TRUE(extensions.registerAll(u"/a"_s, u"/b"_s, {}, &processes).written);
    for (const auto& start : processes.starts)
        EXPECT_TRUE(start.program.startsWith(u"update-"));
    processes.starts.clear();
    EXPECT_FALSE(extensions.registerAll(u"/a"_s, u"/b"_s, {}, &processes).written);
    EXPECT_TRUE(processes.starts.empty());
}

} // namespace
