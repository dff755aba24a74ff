// The files of a source besides its documents: collection.json and the tree.
#include "collection/champs.h"
#include "core/texte.h"

#include <algorithm>

namespace velm {

using namespace Qt::Literals::StringLiterals;

void parcourtlignes(QByteArrayView contenu, qint64 premiere,
                    const std::function<void(QByteArrayView ligne, qint64 numero)>& ligne) {
    qint64 numero = premiere;
    qsizetype debut = 0;
    while (debut < contenu.size()) {
        qsizetype fin = contenu.indexOf('\n', debut);
        if (fin < 0)
            fin = contenu.size();
        const QByteArrayView l = contenu.sliced(debut, fin - debut);
        if (!l.trimmed().isEmpty())
            ligne(l, numero);
        ++numero;
        debut = fin + 1;
    }
}

bool litnoeud(QByteArrayView ligne, Noeud& noeud, const Signale& signale) {
    LecteurJson json(ligne);
    Champs champs(json, signale);
    std::optional<qint64> numero;
    std::optional<qint64> parent;
    std::optional<qint64> ordre;
    QString collection;
    if (json.genre() == LecteurJson::Genre::Objet) {
        json.objet([&](const QString& nom) {
            if (nom == u"noeud")
                champs.entier(nom, numero);
            else if (nom == u"parent")
                champs.entier(nom, parent);
            else if (nom == u"ordre")
                champs.entier(nom, ordre);
            else if (nom == u"collection")
                champs.texte(nom, collection);
            else if (nom == u"libelle")
                champs.texte(nom, noeud.libelle);
            else
                champs.inconnu(nom);
        });
    } else {
        json.passe();
    }
    json.fin();
    if (signalefaute(json, signale))
        return false;
    if (noeud.libelle.trimmed().isEmpty())
        signale(Texte::ChampManquant, u"libelle"_s, false);
    noeud.collection = indicedecollection(collection);
    if (noeud.collection < 0)
        signale(collection.isEmpty() ? Texte::ChampManquant : Texte::CollectionInconnue,
                collection.isEmpty() ? u"collection"_s : collection, false);
    if (!numero) {
        signale(Texte::ChampManquant, u"noeud"_s, false);
        return false;
    }
    if (*numero < 1 || *numero > plusgrandnoeud) {
        signale(Texte::NumeroHorsLimites, QString::number(*numero), false);
        return false;
    }
    noeud.numero = *numero;
    noeud.parent = parent.value_or(0);
    noeud.ordre = ordre.value_or(0);
    return noeud.collection >= 0;
}

namespace {

class LectureDeCollection {
public:
    LectureDeCollection(QByteArrayView contenu, Reglagesdecollection& reglages,
                        const std::function<void(Probleme)>& signale)
        : contenu_(contenu), json_(contenu), signale_([this, &signale](Probleme p) {
              p.ligne = ligne();
              signale(std::move(p));
          }),
          champs_(json_, signale_), reglages_(reglages) {
        reglages_.couleurs.fill(0xFFFFFF);
    }

    void lit() {
        json_.objet([this](const QString& nom) {
            if (nom == u"titre")
                champs_.texte(nom, reglages_.titre);
            else if (nom == u"typesdocuments")
                types(nom);
            else if (nom == u"styles")
                membres(nom, [this](const QString& style) { unstyle(style); });
            else if (nom == u"couleurs")
                membres(nom, [this](const QString& code) { unecouleur(code); });
            else
                champs_.inconnu(nom);
        });
        json_.fin();
        signalefaute(json_, signale_);
    }

private:
    qint64 ligne() const {
        const auto avant = contenu_.first(std::min(json_.colonne() - 1, contenu_.size()));
        return 1 + std::count(avant.begin(), avant.end(), '\n');
    }

    template <typename F>
    void membres(const QString& nom, F&& membre) {
        if (json_.genre() == LecteurJson::Genre::Objet)
            json_.objet(membre);
        else
            champs_.nulou(nom);
    }

    void types(const QString& nom) {
        if (json_.genre() != LecteurJson::Genre::Tableau) {
            champs_.nulou(nom);
            return;
        }
        reglages_.typesdonnes = true;
        json_.tableau([&] {
            TypeDeDocument type;
            std::optional<qint64> numero;
            membres(nom, [&](const QString& membre) {
                if (membre == u"numero")
                    champs_.entier(membre, numero);
                else if (membre == u"libelle")
                    champs_.texte(membre, type.libelle);
                else
                    champs_.inconnu(membre);
            });
            if (!json_.juste())
                return;
            if (!numero || type.libelle.isEmpty()) {
                signale_(Texte::ChampManquant, numero ? u"libelle"_s : u"numero"_s, false);
                return;
            }
            type.numero = *numero;
            for (const TypeDeDocument& autre : reglages_.types) {
                if (autre.numero == type.numero || autre.libelle == type.libelle)
                    signale_(Texte::CleEnDouble, type.libelle, false);
            }
            reglages_.types.push_back(type);
        });
    }

    void unstyle(const QString& nom) {
        const auto style = styledunom(nom);
        QString section;
        champs_.texte(nom, section);
        if (!json_.juste())
            return;
        if (!style)
            signale_(Texte::StyleInconnu, nom, false);
        else if (section.contains(u'{') || section.contains(u'}'))
            signale_(Texte::BalisageIncorrect, section, false);
        else
            reglages_.sections[static_cast<std::size_t>(*style)] = section;
    }

    void unecouleur(const QString& code) {
        const int collection = indicedecollection(code);
        QString texte;
        champs_.texte(code, texte);
        if (!json_.juste())
            return;
        const auto valeur = lirecouleur(texte);
        if (collection < 0)
            signale_(Texte::CollectionInconnue, code, false);
        else if (!valeur)
            signale_(Texte::CouleurIncorrecte, texte, false);
        else
            reglages_.couleurs[static_cast<std::size_t>(collection)] = *valeur;
    }

    QByteArrayView contenu_;
    LecteurJson json_;
    Signale signale_;
    Champs champs_;
    Reglagesdecollection& reglages_;
};

} // namespace

void litcollection(QByteArrayView contenu, Reglagesdecollection& reglages,
                   const std::function<void(Probleme)>& signale) {
    LectureDeCollection(contenu, reglages, signale).lit();
}

} // namespace velm
