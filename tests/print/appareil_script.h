#pragma once
// A printer that writes down what is asked of it, and formats by a table: so many characters on each line of so many
// twips.
#include "platform/paper/printdevice.h"
#include "platform/richtext/richtext.h"

#include <QStringList>

#include <algorithm>
#include <vector>

namespace velm::test {

class AppareilScript final : public PrintDevice {
public:
    Sheet feuille{11906, 16838, 11406, 16338, 250, 240};
    int caracteresparligne = 10;
    int hauteurdeligne = 1000;
    int hauteurdetexte = 240;
    int largeurdelettre = 100;
    bool avance = true; ///< takes at least a line
    int pannea = -1;    ///< the call, from 0, at which it fails; none for -1

    QStringList appels;
    QStringList passages; ///< the ranges alone, "from-next@top:bottom"
    int liberations = 0;
    qsizetype libereapres = 0; ///< after so many calls, the last time

    void oublie() {
        appels.clear();
        passages.clear();
    }

    Sheet sheet() const override { return feuille; }
    void blank() override { note(QStringLiteral("blanc")); }
    void newPage() override { note(QStringLiteral("page")); }
    void endDocument() override { note(QStringLiteral("fin")); }
    void discard() override { note(QStringLiteral("jette")); }
    void setFont(const PrintFont& font) override {
        note(QStringLiteral("police %1 %2 %3%4").arg(font.family).arg(font.points).arg(font.bold).arg(font.italic));
    }
    int textWidth(const QString& text) const override { return largeurdelettre * static_cast<int>(text.size()); }
    int textHeight(const QString& text) const override { return text.isEmpty() ? 0 : hauteurdetexte; }
    void setX(int x) override { note(QStringLiteral("x %1").arg(x)); }
    void setY(int y) override { note(QStringLiteral("y %1").arg(y)); }
    void print(const QString& text) override { note(QStringLiteral("texte [%1]").arg(text)); }
    void rule(int from, int to, int y) override { note(QStringLiteral("trait %1-%2 %3").arg(from).arg(to).arg(y)); }

    Formatted format(const RichText& text, qsizetype from, qsizetype to, const QRect& rectangle) override {
        const qsizetype fin = to == -1 ? text.length() : std::min(to, text.length());
        const qsizetype reste = std::max<qsizetype>(0, fin - from);
        const qsizetype place = std::max(avance ? 1 : 0, rectangle.height() / hauteurdeligne);
        const qsizetype lignes = std::min(place, (reste + caracteresparligne - 1) / caracteresparligne);
        const Formatted fait{from + std::min(reste, lignes * caracteresparligne),
                             rectangle.top() + static_cast<int>(lignes) * hauteurdeligne};
        note(QStringLiteral("passage %1-%2 en %3,%4 %5x%6")
                 .arg(from)
                 .arg(to)
                 .arg(rectangle.left())
                 .arg(rectangle.top())
                 .arg(rectangle.width())
                 .arg(rectangle.height()));
        passages << QStringLiteral("%1-%2@%3:%4").arg(from).arg(fait.next).arg(rectangle.top()).arg(fait.bottom);
        return fait;
    }
    void release() override {
        ++liberations;
        libereapres = appels.size();
    }

private:
    void note(const QString& appel) {
        if (pannea >= 0 && appels.size() == pannea)
            throw PrintFailure("gone");
        appels << appel;
    }
};

} // namespace velm::test
