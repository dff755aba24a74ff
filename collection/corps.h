#pragma once
// Bodies: from the paragraphs of a source to the rich text that is stored, with the private markup in it.
#include "collection/balisage.h"
#include "collection/document.h"
#include "collection/ecritrtf.h"
#include "collection/tableau.h"

#include <QHash>
#include <QSet>

#include <memory>

namespace velm {

struct CorpsFait {
    QByteArray contenu; ///< rich text in seven bits
    QString montre;     ///< the text as it is shown: inclusions resolved, no markup
    std::vector<CleDocument>
        liens; ///< targets that exist, each once, in order of appearance; never the document itself
    Problemes problemes;
};

/// Makes bodies; one for each thread, as it keeps its buffers.
class FaiseurDeCorps {
public:
    explicit FaiseurDeCorps(const Provenance& provenance);

    void fait(qsizetype document, CorpsFait& resultat);

private:
    void ecrit(const std::vector<Paragraphe>& paragraphes);
    void pose(StyleSource style, QByteArrayView mise, int demipoints);
    void ouvreparagraphe(StyleSource style, QByteArrayView mise, int demipoints);
    void paragraphe(const Paragraphe& paragraphe);
    void tableau(const std::vector<QStringView>& rangees);
    void fragments(const std::vector<Fragment>& cellule, const std::vector<LienDeTableau>& liens);
    void ouvrelien(Morceau::Genre genre);
    void fermelien(Morceau::Genre genre, QStringView cible);
    void format(bool gras, bool italique, bool lien);
    void montre(QStringView texte);
    void inclut(QStringView cle);
    const QString& texteinclus(qsizetype cible);
    void note(CleDocument cible, QStringView texte);
    void probleme(Texte texte, const QString& argument, bool avertissement);

    void richetexte(const QByteArray& rtf);

    const Provenance& provenance_;
    EcritRtf rtf_;
    CorpsFait* resultat_ = nullptr;
    qsizetype document_ = 0;
    SignaleBalisage signale_;
    std::vector<Morceau> morceaux_;
    QSet<CleDocument> vus_;         ///< targets noted so far
    std::vector<qsizetype> inclus_; ///< documents being included, the outermost first
    /// Shared with the makers of included texts, which work for this one.
    std::shared_ptr<QHash<qsizetype, QString>> textesinclus_ = std::make_shared<QHash<qsizetype, QString>>();
    QString section_;
    StyleSource style_ = StyleSource::Alinea;
    QByteArray mise_;
    int demipoints_ = 0;
    bool findue_ = false; ///< a paragraph end is due before the next paragraph
    bool gras_ = false, italique_ = false, lien_ = false;
    bool muet_ = false; ///< only the shown text is wanted
};

} // namespace velm
