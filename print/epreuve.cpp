#include "print/epreuve.h"

#include "core/adresse.h"
#include "document/listesliens.h"
#include "platform/system/addresses.h"

#include <QUrl>

#include <algorithm>

namespace velm {

namespace {

/// A sheet that bears nothing of a document: what ends a dossier whose documents were jobs of their own.
bool feuillevide(const JobPages& pages) {
    return std::ranges::none_of(pages.sources, [](const JobSource& source) { return source.page >= 0; });
}

} // namespace

Epreuve::Epreuve(const Donnees& donnees)
    : travail_(donnees.feuille,
               [this](const JobPages& pages) {
                   if (!feuillevide(pages))
                       pages_.append(pages);
               }),
      impression_({travail_, etat_, donnees.documents, donnees.dossiers, donnees.texte, [](bool) {}}) {
    travail_.setProgress(donnees.avance);
}

void Epreuve::documententier(const DocumentImprime& document) {
    annonce(document.titre, document.liens);
    impression_.imprimerichtext(document.rtf, 0, Impression::tout);
    if (etat_.travailencours)
        impression_.terminetravail();
}

void Epreuve::travail(const JobPages& pages, const EtatImpression& etat) {
    travail_.resume(pages);
    etat_ = etat;
    impression_.terminetravail();
}

void Epreuve::annonce(const QString& titre, const ListesLiens* liens) {
    annoncedocument(travail_, titre, liens);
}

void annoncedocument(PrintJob& travail, const QString& titre, const ListesLiens* liens) {
    travail.setTitle(titre);
    std::vector<LinkSpan> dehors;
    const auto ajoute = [&](const QStringList& adresses, const ListePositions& debuts, const ListePositions& fins,
                            const auto& adresse) {
        for (qsizetype rang = 0; rang < std::min({adresses.size(), debuts.nombre(), fins.nombre()}); ++rang) {
            if (const std::optional<QUrl> url = adresse(adresses.at(rang)))
                dehors.push_back({debuts.valeur(rang), fins.valeur(rang), QString::fromLatin1(url->toEncoded())});
        }
    };
    if (liens) {
        ajoute(liens->ListeUrl, liens->ListeStartUrl, liens->ListeEndUrl,
               [](const QString& adresse) { return webUrl(adresseaouvrir(adresse)); });
        ajoute(liens->ListeEmail, liens->ListeStartEmail, liens->ListeEndEmail, mailUrl);
    }
    travail.setLinks(std::move(dehors));
}

} // namespace velm
