#pragma once
// The tips of the day: a text file in the language folder, one tip on each line. A line that begins with the name of a
// command in square brackets, "[Dossiers] …", is a tip about what that command does, and no tip before the program has
// it.
#include <QString>
#include <QStringList>

#include <functional>

namespace velm {

class Astuces {
public:
    /// `hasard` gives numbers from 0 up to but not including 1.
    explicit Astuces(std::function<double()> hasard);

    /// Path of a language's tips: application folder + "/langues/TIPS." + extension.
    static QString cheminfichier(const QString& dossierapplication, const QString& extension);

    /// Takes every line as it stands, but for a command's name at its beginning, in place of what was there, and picks
    /// a first tip. False when the name is empty or the file cannot be read: then there are no tips. An empty file is
    /// no failure. Windows-1252, or UTF-8 behind its mark.
    bool loadtips(const QString& fichier);

    /// Picks a tip at random; the same one may come again.
    void nexttip();

    /// The tip that was picked; nothing when there are none.
    QString displaycurrenttip() const;

    qsizetype nombre() const { return astuces_.size(); }

private:
    std::function<double()> hasard_;
    QStringList astuces_;
    qsizetype courante_ = 0; ///< from 1; 0 for none
};

} // namespace velm
