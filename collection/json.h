#pragma once
// A strict reader of one JSON value in UTF-8, made for lines that are read once from left to right.
#include <QByteArrayView>
#include <QString>

#include <concepts>

namespace velm {

/// Reads forward only. The first error stays: every later read gives nothing, and error() tells what and where.
class LecteurJson {
public:
    enum class Genre { Nul, Booleen, Nombre, Texte, Tableau, Objet, Fin, Inconnu };
    enum class Erreur { Aucune, Syntaxe, Utf8 };

    explicit LecteurJson(QByteArrayView ligne);

    /// Kind of the value that stands next, judged by its first character.
    Genre genre();

    /// The text of a string value; U+0000 reads as a blank.
    QString texte();
    /// The value of a number; false when it is no whole number that fits.
    bool entier(qint64& valeur);
    /// Passes over a value of any kind, checking it.
    void passe();

    /// Calls `membre(name)` for each member of an object; the call must read or pass over the value.
    template <std::invocable<const QString&> F>
    void objet(F&& membre) {
        if (!ouvre('{'))
            return;
        if (ferme('}'))
            return;
        do {
            const QString nom = texte();
            if (!attend(':'))
                return;
            membre(nom);
        } while (suite('}'));
    }

    /// Calls `element()` for each element of an array; the call must read or pass over the value.
    template <std::invocable F>
    void tableau(F&& element) {
        if (!ouvre('['))
            return;
        if (ferme(']'))
            return;
        do
            element();
        while (suite(']'));
    }

    /// Nothing but blanks may follow the value.
    void fin();

    bool juste() const { return erreur_ == Erreur::Aucune; }
    Erreur erreur() const { return erreur_; }
    /// Column of the error in bytes from 1, and the few characters that stand there.
    qsizetype colonne() const { return p_ - debut_ + 1; }
    QString extrait() const;

private:
    void blancs();
    bool faute(Erreur erreur = Erreur::Syntaxe);
    bool ouvre(char c);
    bool ferme(char c);
    bool attend(char c);
    bool suite(char fermant);
    bool mot(QByteArrayView mot);
    bool nombre();
    bool unite(unsigned& valeur);
    void ordinaires();
    void passetexte();
    bool autre(QChar*& vers);
    bool echappe(QChar*& vers);
    bool multioctet(QChar*& vers);

    const char* debut_;
    const char* p_;
    const char* fin_;
    int profondeur_ = 0;
    Erreur erreur_ = Erreur::Aucune;
};

} // namespace velm
