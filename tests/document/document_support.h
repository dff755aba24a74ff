#pragma once
// Forms, sources and texts for the tests of the markup.
#include "document/balises.h"

#include <QHash>

#include <vector>

namespace velm::test {

class FormulaireEssai : public FormulaireRiche {
public:
    explicit FormulaireEssai(bool aveclistes = true) : aveclistes_(aveclistes) {}
    RichTextControl& rtfRichTextBox1() override { return controle; }
    ListesLiens* listes() override { return aveclistes_ ? &liens : nullptr; }

    RichTextControl controle;
    ListesLiens liens;

private:
    bool aveclistes_;
};

/// Bodies by key; counts how often it is asked.
class SourceEssai : public SourceDeContenu {
public:
    void prepare() override { ++preparations; }
    std::optional<QByteArray> contenu(const Cle& cle) override {
        ++demandes;
        const auto trouve = corps.constFind(cle.texte());
        return trouve == corps.constEnd() ? std::nullopt : std::optional(*trouve);
    }

    QHash<QString, QByteArray> corps;
    int preparations = 0;
    int demandes = 0;
};

/// RTF of a plain text; "\n" is a paragraph end.
QByteArray rtfde(QStringView texte);

/// A character or paragraph style that differs from all others with another number.
Style styled(const QString& nom, int numero, bool caractere = false);

/// A paragraph style "a", a character style "c", a bulleted style "puce", "Suite" and "Condense" as the language's
/// styles, "cachee" in the condensed list.
TableStyles stylesdessai();

/// One document run through the passes.
class Essai {
public:
    explicit Essai(bool aveclistes = true) : formulaire(aveclistes) {}
    /// Loads the text ("\n" is a paragraph end), runs the passes, gives the text back with "\n" for CR LF.
    QString passe(const QString& texte, bool abc = false);
    void charge(const QString& texte);
    const CharFormat& caractere(qsizetype position) const;
    const ParaFormat& paragraphe(qsizetype position) const;
    /// "start-end target shown" for each row.
    QStringList liens() const;

    FormulaireEssai formulaire;
    SourceEssai source;
    SablierMuet sablier;
    TableStyles styles = stylesdessai();
    BornesPasses bornes;
};

} // namespace velm::test
