#include "modele.h"

namespace velm::test {

// ---- a node

std::size_t NoeudModele::place() const {
    std::size_t i = 0;
    while (parent->enfants[i].get() != this)
        ++i;
    return i;
}

NoeudModele* NoeudModele::suivant() const {
    return place() + 1 < parent->enfants.size() ? parent->enfants[place() + 1].get() : nullptr;
}

NoeudModele* NoeudModele::precedent() const {
    return place() > 0 ? parent->enfants[place() - 1].get() : nullptr;
}

bool NoeudModele::sous(const NoeudModele* autre) const {
    return this == autre || (parent && parent->sous(autre));
}

// ---- loading

NoeudModele& ModeleArbre::enfant(NoeudModele& parent, std::size_t place, const QString& cle, const QString& texte,
                                 const QString& suite) {
    auto nouveau = std::make_unique<NoeudModele>();
    nouveau->cle = cle;
    nouveau->texte = texte;
    nouveau->image = u"dossierfermé"_s + suite;
    nouveau->choisie = u"dossierouvert"_s + suite;
    nouveau->parent = &parent;
    const auto ici = parent.enfants.begin() + static_cast<std::ptrdiff_t>(place);
    return **parent.enfants.insert(ici, std::move(nouveau));
}

void ModeleArbre::chargement() {
    prochainnumero = tables_.dernoarborescence + 1;
    chargearbre();
}

void ModeleArbre::chargearbre() {
    modifie = false;
    racine = std::make_unique<NoeudModele>();
    racine->cle = u"X  0"_s;
    racine->texte = u"Mes dossiers"_s;
    racine->image = u"dossierfermé"_s;
    racine->choisie = u"dossierouvert"_s;
    developperbranche(*racine);
}

void ModeleArbre::developperbranche(NoeudModele& noeud) {
    if (noeud.tag.startsWith(u"+"_s))
        return;
    const bool marque = noeud.tag.contains(u"S"_s);
    std::vector<RangeeDossier> rangees;
    for (const RangeeDossier& r : tables_.arborescences) {
        if (r.parent == noeud.numero())
            rangees.push_back(r);
    }
    std::stable_sort(rangees.begin(), rangees.end(), [](const auto& a, const auto& b) { return a.ordre < b.ordre; });
    for (const RangeeDossier& r : rangees) {
        const QString cle = u"X "_s + decimal(r.numero);
        if (this->noeud(cle))
            continue;
        NoeudModele& un =
            enfant(noeud, noeud.enfants.size(), cle, textemodele(r.nom, r.compte), marque ? u"suppr"_s : QString());
        if (marque)
            un.tag = u"S"_s;
    }
    noeud.tag = u"+"_s + noeud.tag;
}

void ModeleArbre::developpe(NoeudModele& noeud) {
    for (const auto& un : noeud.enfants) {
        if (un->tag != u"+"_s)
            developperbranche(*un);
    }
}

void ModeleArbre::toutdevelopper() {
    std::vector<NoeudModele*> ici = tous();
    for (std::size_t i = 0; i < ici.size(); ++i) {
        if (ici[i]->tag.startsWith(u"+"_s))
            continue;
        const std::size_t avant = ici[i]->enfants.size();
        developperbranche(*ici[i]);
        for (std::size_t j = avant; j < ici[i]->enfants.size(); ++j)
            ici.push_back(ici[i]->enfants[j].get());
    }
}

NoeudModele* ModeleArbre::noeud(const QString& cle) const {
    for (NoeudModele* un : tous()) {
        if (un->cle == cle)
            return un;
    }
    return nullptr;
}

std::vector<NoeudModele*> ModeleArbre::tous() const {
    std::vector<NoeudModele*> ici;
    const auto descends = [&](auto&& encore, NoeudModele& noeud) -> void {
        ici.push_back(&noeud);
        for (const auto& un : noeud.enfants)
            encore(encore, *un);
    };
    if (racine)
        descends(descends, *racine);
    return ici;
}

QString ModeleArbre::dessin() const {
    QStringList lignes;
    for (const NoeudModele* un : tous()) {
        int profondeur = 0;
        for (const NoeudModele* haut = un->parent; haut; haut = haut->parent)
            ++profondeur;
        lignes << QString::number(profondeur) + u'|' + un->cle + u'|' + un->texte + u'|' + un->image + u'|' +
                      un->choisie + u'|' + un->tag;
    }
    return lignes.join(u'\n');
}

// ---- editing

NoeudModele& ModeleArbre::ajoute(NoeudModele& parent) {
    modifie = true;
    // Neither a node's number nor one that the tables know.
    while (noeud(u"X "_s + decimal(prochainnumero)) || tables_.dossier(prochainnumero) ||
           tables_.comptearticle(prochainnumero) != 0)
        ++prochainnumero;
    NoeudModele& nouveau = enfant(parent, parent.enfants.size(), u"X "_s + decimal(prochainnumero), {}, {});
    nouveau.tag = u"+A"_s;
    ++prochainnumero;
    return nouveau;
}

void ModeleArbre::renomme(NoeudModele& noeud) {
    const qint64 compteuredite = comptemodele(noeud.texte);
    noeud.texte = nommodele(noeud.texte);
    if (!noeud.tag.contains(u"R"_s))
        noeud.tag += u"R"_s;
    if (compteuredite != 0)
        noeud.texte += u" ["_s + QString::number(compteuredite) + u"]"_s;
}

void ModeleArbre::marquersuppression(NoeudModele& noeud, bool marquer) {
    modifie = true;
    const bool marque = noeud.tag.contains(u"S"_s);
    if (marquer && !marque) {
        noeud.image = u"dossierfermésuppr"_s;
        noeud.choisie = u"dossierouvertsuppr"_s;
        noeud.tag += u"S"_s;
    }
    if (!marquer && marque) {
        noeud.image = u"dossierfermé"_s;
        noeud.choisie = u"dossierouvert"_s;
        noeud.tag.remove(noeud.tag.indexOf(u"S"_s), 1);
    }
    for (const auto& un : noeud.enfants)
        marquersuppression(*un, marquer);
}

void ModeleArbre::marquedeplacement(NoeudModele& noeud) {
    if (!noeud.tag.contains(u"D"_s))
        noeud.tag += u"D"_s;
    for (const auto& un : noeud.enfants)
        marquedeplacement(*un);
}

bool ModeleArbre::deplace(NoeudModele& noeud, NoeudModele& cible) {
    if (!noeud.parent || cible.sous(&noeud))
        return false;
    auto& avant = noeud.parent->enfants;
    const auto ici = avant.begin() + static_cast<std::ptrdiff_t>(noeud.place());
    std::unique_ptr<NoeudModele> lui = std::move(*ici);
    avant.erase(ici);
    lui->parent = &cible;
    cible.enfants.push_back(std::move(lui));
    marquedeplacement(noeud);
    modifie = true;
    return true;
}

bool ModeleArbre::monte(NoeudModele& noeud) {
    return noeud.parent && reconstruit(noeud, noeud.precedent(), 0);
}

bool ModeleArbre::descend(NoeudModele& noeud) {
    return noeud.parent && reconstruit(noeud, noeud.suivant(), 1);
}

bool ModeleArbre::reconstruit(NoeudModele& noeud, NoeudModele* voisin, std::size_t decalage) {
    if (!voisin)
        return false;
    const QString cle = noeud.cle;
    const QString tag = noeud.tag;
    if (!voisin->tag.contains(u"D"_s))
        voisin->tag += u"D"_s;
    NoeudModele& parent = *noeud.parent;
    NoeudModele& nouveau = enfant(parent, voisin->place() + decalage, cle + u"$"_s, noeud.texte, {});
    nouveau.image = noeud.image;
    nouveau.choisie = noeud.choisie;
    decalechildren(noeud, nouveau);
    parent.enfants.erase(parent.enfants.begin() + static_cast<std::ptrdiff_t>(noeud.place()));
    nouveau.tag = tag.contains(u"D"_s) ? tag : tag + u"D"_s;
    virerlesmarques(nouveau);
    modifie = true;
    return true;
}

void ModeleArbre::decalechildren(const NoeudModele& noeud, NoeudModele& copie) {
    for (const auto& un : noeud.enfants) {
        NoeudModele& autre = enfant(copie, copie.enfants.size(), un->cle + u"$"_s, un->texte, {});
        autre.image = un->image;
        autre.choisie = un->choisie;
        decalechildren(*un, autre);
    }
}

void ModeleArbre::virerlesmarques(NoeudModele& noeud) {
    for (const auto& un : noeud.enfants)
        virerlesmarques(*un);
    noeud.cle.chop(1);
}

void ModeleArbre::modifierelements(NoeudModele& noeud, qint64 delta) {
    if (&noeud != racine.get())
        noeud.texte = changemodele(noeud.texte, delta);
}

// ---- saving

void ModeleArbre::Sauvearbre() {
    compteurordre_ = 0;
    const std::size_t nombre = racine->enfants.size();
    NoeudModele* un = nombre > 0 ? racine->enfants.front().get() : nullptr;
    for (std::size_t i = 1; i <= nombre; ++i) {
        bool supprime = false;
        miseajourauplusbas(*un, supprime);
        if (racine->enfants.empty())
            break;
        if (racine->enfants.size() == 1) {
            un = racine->enfants.front().get();
            continue;
        }
        const std::size_t place = un->place();
        un = un->suivant();
        if (supprime)
            racine->enfants.erase(racine->enfants.begin() + static_cast<std::ptrdiff_t>(place));
    }
    if (tables_.dernoarborescence + 1 != prochainnumero)
        tables_.dernoarborescence = prochainnumero;
    modifie = false;
}

void ModeleArbre::miseajourauplusbas(NoeudModele& noeud, bool& supprime) {
    const bool marque = noeud.tag.contains(u"S"_s);
    if (marque && noeud.enfants.empty()) {
        if (tables_.dossier(noeud.numero())) {
            tables_.effaceelements(noeud.numero());
            tables_.effacedossier(noeud.numero());
        }
        supprime = true;
        return;
    }
    if (!marque)
        sauvenoeud(noeud);
    for (const auto& un : noeud.enfants) {
        bool ignore = false;
        miseajourauplusbas(*un, ignore);
    }
}

void ModeleArbre::sauvenoeud(NoeudModele& noeud) {
    ++compteurordre_;
    const QString nom = nommodele(noeud.texte);
    const qint64 compte = comptemodele(noeud.texte);
    const qint64 numero = noeud.numero();
    RangeeDossier* rangee = tables_.dossier(numero);
    if (noeud.tag.contains(u"A"_s)) {
        prochainnumero = std::max(prochainnumero, numero);
        // A row of its own from an earlier save of the same tree is that row.
        if (!rangee)
            rangee = &tables_.arborescences.emplace_back();
        *rangee = {numero, noeud.parent->numero(), compteurordre_, nom, compte};
    }
    if (!rangee)
        return;
    if (noeud.tag.contains(u"D"_s))
        *rangee = {numero, noeud.parent->numero(), compteurordre_, nom, compte};
    if (noeud.tag.contains(u"R"_s))
        *rangee = {numero, rangee->parent, compteurordre_, nom, compte};
    *rangee = {numero, rangee->parent, compteurordre_, nom, compte};
}

} // namespace velm::test
