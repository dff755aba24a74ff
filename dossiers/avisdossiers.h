#pragma once
// What is said and asked while the dossiers are worked on.
#include "core/texte.h"
#include "dossiers/magasin.h"
#include "platform/system/dialogues.h"

namespace velm {

class AvisDossiers {
public:
    /// The boxes are not owned.
    AvisDossiers(Dialogues& dialogues, Libelles texte) : dialogues_(dialogues), texte_(std::move(texte)) {}

    /// The store cannot be trusted; `copie`: the newest one that can, empty for none.
    void endommage(const QString& copie) const;
    /// A change could not be made: `message` with its reason.
    void manque(Texte message, const EchecEcriture& echec) const;
    bool veutreparer() const;
    bool veutsupprimer(const QString& dossier) const;
    bool veutimprimer(const QString& dossier) const;
    void deplacementrefuse() const;
    /// What could not be saved is given up.
    bool veutfermer(const EchecEcriture& echec) const;

private:
    QString texte(Texte lequel) const { return texte_(lequel); }
    QString raisonde(const EchecEcriture& echec) const;

    Dialogues& dialogues_;
    Libelles texte_;
};

} // namespace velm
