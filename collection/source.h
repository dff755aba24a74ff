#pragma once
// A publisher's source folder, read and checked.
#include "collection/arbresource.h"
#include "collection/document.h"
#include "collection/fichiers.h"

#include <memory>

namespace velm {

/// A document as its line in the source gives it.
struct Fiche {
    Entete entete;
    int fichier = 0;
    qint64 ligne = 0;
    QByteArrayView brut;                 ///< the line, for the paragraphs
    QByteArray rtf;                      ///< body from a rich text file; null for paragraphs
    QString fichierrtf;                  ///< that file, as the line names it
    std::vector<CleDocument> inclusions; ///< keys named in {I=…}
};

/// What collection.json says.
struct Reglagesdecollection {
    QString titre;
    std::vector<TypeDeDocument> types;
    bool typesdonnes = false;
    Sections sections = sectionspardefaut();
    std::array<qint32, nombredecollections> couleurs{};
};

/// Reads all of `source`: collection.json (optional), arborescence.jsonl (optional), documents*.jsonl in the order of
/// their names. Paragraphs are read again when they are asked for, so that a big source takes little more memory than
/// its files.
class SourceDossier final : public Provenance {
public:
    explicit SourceDossier(const QString& source);
    explicit SourceDossier(std::unique_ptr<const FichiersSource> fichiers);
    ~SourceDossier() override;

    /// Everything that is wrong but the markup of the bodies, which is told when they are made.
    const Problemes& problemes() const { return problemes_; }

    qsizetype nombre() const override { return static_cast<qsizetype>(fiches_.size()); }
    CleDocument cle(qsizetype i) const override { return fiche(i).entete.cle; }
    qsizetype cherche(CleDocument cle) const override;
    Entete entete(qsizetype i) const override { return fiche(i).entete; }
    Corps corps(qsizetype i) const override;
    Probleme lieu(qsizetype i) const override;
    QString titre() const override { return reglages_.titre; }
    const std::vector<Noeud>& noeuds() const override { return arbre_.noeuds(); }
    const std::vector<TypeDeDocument>& types() const override { return reglages_.types; }
    const Sections& sections() const override { return reglages_.sections; }

private:
    struct Fichier {
        QString nom;
        QByteArray contenu;
    };
    const Fiche& fiche(qsizetype i) const { return fiches_[static_cast<std::size_t>(i)]; }
    bool litfichier(const QString& nom, bool exige);
    void litreglages();
    void litnoeuds();
    void litdocuments();
    void range();
    void completetypes();
    void verifiedocument(Fiche& fiche);
    void verifieinclusions();
    void probleme(int fichier, qint64 ligne, Texte texte, const QString& argument, bool avertissement = false);
    const QString& nomdufichier(int fichier) const { return fichiers_[static_cast<std::size_t>(fichier)].nom; }
    QString titredutexte(const Entete& entete) const;

    std::unique_ptr<const FichiersSource> source_;
    std::vector<Fichier> fichiers_;
    std::vector<Fiche> fiches_;
    ArbreSource arbre_;
    std::array<std::pair<std::size_t, std::size_t>, nombredecollections> tranches_{};
    Reglagesdecollection reglages_;
    Problemes problemes_;
};

} // namespace velm
