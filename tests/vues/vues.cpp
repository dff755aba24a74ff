// Makes a picture of every window in every state: `vues FOLDER [--base FILE] [--language EN] [--dark]`. The display is
// the one that is there; what cannot be reached is said, and the status is 1.
#include "platform/widgets/look/look.h"
#include "tests/vues/visite.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QScreen>

#include <cstdio>

using namespace Qt::Literals::StringLiterals;

namespace {

/// What has lost its screen would be drawn anew: the picture is the screen's own.
void keep(const QString& folder, const velm::vues::Sight& sight) {
    const QPixmap picture = sight.window.screen()->grabWindow(0);
    if (!picture.save(QDir(folder).filePath(sight.name + u".png"_s)))
        std::fprintf(stderr, "no picture of %s\n", qPrintable(sight.name));
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"VELMORANTE2000"_s);
    QApplication::setApplicationVersion(u"1.0"_s);
    QApplication::setQuitOnLastWindowClosed(false);
    QCommandLineParser line;
    line.addPositionalArgument(u"folder"_s, u"where the pictures go"_s);
    line.addOptions({{u"base"_s, u"the collection; the sample without it"_s, u"file"_s},
                     {u"language"_s, u"extension of the language file"_s, u"extension"_s, u"FR"_s},
                     {u"dark"_s, u"the dark palette"_s}});
    line.process(application);
    const QString folder = line.positionalArguments().value(0);
    if (folder.isEmpty() || !QDir().mkpath(folder))
        return 2;
    using velm::look::Theme;
    const velm::vues::Manner manner{line.value(u"base"_s), line.value(u"language"_s),
                                    line.isSet(u"dark"_s) ? Theme::Dark : Theme::Light};
    const QStringList missed = velm::vues::walk(manner, [&](const velm::vues::Sight& sight) { keep(folder, sight); });
    for (const QString& one : missed)
        std::fprintf(stderr, "not reached: %s\n", qPrintable(one));
    return missed.isEmpty() ? 0 : 1;
}
