#include "collection/lecture.h"

#include "collection/balisage.h"
#include "collection/ecritrtf.h"
#include "collection/jetons.h"
#include "platform/richtext/rtf.h"

#include <QDate>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 plusgrandnumero = 999999;
constexpr qint64 plusgrandnoeud = 0x7FFFFFFF;
constexpr qsizetype plusdemotscles = 3;
constexpr qsizetype longueurdutitre = 255;

QString ouetquoi(const LecteurJson& json, QByteArrayView ligne) {
    Q_UNUSED(ligne)
    return QString::number(json.colonne()) + u" : "_s + json.extrait();
}

/// The errors of the reader itself.
bool signalefaute(const LecteurJson& json, QByteArrayView ligne, const Signale& signale) {
    if (json.juste())
        return false;
    if (json.erreur() == LecteurJson::Erreur::Utf8)
        signale(probleme::utf8, {}, false);
    else
        signale(probleme::json, ouetquoi(json, ligne), false);
    return true;
}

/// Fields of a line by kind; each reads its value whatever it is.
class Champs {
public:
    Champs(LecteurJson& json, const Signale& signale) : json_(json), signale_(signale) {}

    /// A text, or null.
    void texte(const QString& nom, QString& valeur) {
        if (json_.genre() == LecteurJson::Genre::Texte)
            valeur = json_.texte();
        else
            nulou(nom);
    }

    void entier(const QString& nom, std::optional<qint64>& valeur) {
        if (json_.genre() == LecteurJson::Genre::Nombre) {
            qint64 lu = 0;
            if (json_.entier(lu))
                valeur = lu;
            else
                nature(nom);
        } else {
            nulou(nom);
        }
    }

    void date(const QString& nom, QString& valeur) {
        texte(nom, valeur);
        if (!valeur.isEmpty() && (valeur.size() != 10 || !QDate::fromString(valeur, u"yyyy-MM-dd"_s).isValid())) {
            signale_(probleme::date, valeur, false);
            valeur.clear();
        }
    }

    void nature(const QString& nom) {
        if (json_.juste())
            signale_(probleme::nature, nom, false);
    }

    void inconnu(const QString& nom) {
        json_.passe();
        if (json_.juste())
            signale_(probleme::champinconnu, nom, true);
    }

    /// Passes over a value that may only be null.
    void nulou(const QString& nom) {
        if (json_.genre() != LecteurJson::Genre::Nul)
            nature(nom);
        json_.passe();
    }

private:
    LecteurJson& json_;
    const Signale& signale_;
};

std::optional<qint32> couleur(const QString& texte) {
    bool bon = false;
    const uint rvb = QStringView(texte).mid(1).toUInt(&bon, 16);
    if (!bon || texte.size() != 7 || texte[0] != u'#')
        return std::nullopt;
    // Red is the low byte of a stored colour.
    return static_cast<qint32>((rvb & 0xFFU) << 16 | (rvb & 0xFF00U) | rvb >> 16);
}

class LectureDeDocument {
public:
    LectureDeDocument(QByteArrayView ligne, const QDir& dossier, Fiche& fiche, const Signale& signale)
        : json_(ligne), champs_(json_, signale), ligne_(ligne), dossier_(dossier), fiche_(fiche), signale_(signale),
          inclut_(ligne.contains("{I=") || ligne.contains("\\u")) {}

    bool lit() {
        if (json_.genre() == LecteurJson::Genre::Objet)
            json_.objet([this](const QString& nom) { champ(nom); });
        else
            json_.passe();
        json_.fin();
        if (signalefaute(json_, ligne_, signale_))
            return false;
        corpsourtf();
        return acheve();
    }

private:
    void champ(const QString& nom) {
        Entete& e = fiche_.entete;
        if (nom == u"collection")
            champs_.texte(nom, collection_);
        else if (nom == u"numero")
            champs_.entier(nom, numero_);
        else if (nom == u"titre")
            champs_.texte(nom, e.titre);
        else if (nom == u"motscles")
            motscles(nom);
        else if (nom == u"source")
            champs_.texte(nom, e.source);
        else if (nom == u"date")
            champs_.date(nom, e.date);
        else if (nom == u"datecreation")
            champs_.date(nom, e.datecreation);
        else if (nom == u"datemodif")
            champs_.date(nom, e.datemodif);
        else if (nom == u"type")
            champs_.texte(nom, e.type);
        else if (nom == u"noeud")
            champs_.entier(nom, noeud_);
        else if (nom == u"numarticle")
            champs_.texte(nom, e.numarticle);
        else if (nom == u"numtitre")
            champs_.texte(nom, e.numtitre);
        else if (nom == u"titretexte")
            champs_.texte(nom, e.titretexte);
        else if (nom == u"couleur")
            champs_.texte(nom, couleur_);
        else if (nom == u"corps")
            paragraphes(nom);
        else if (nom == u"rtf")
            champs_.texte(nom, rtf_);
        else
            champs_.inconnu(nom);
    }

    void motscles(const QString& nom) {
        if (json_.genre() != LecteurJson::Genre::Tableau) {
            champs_.nulou(nom);
            return;
        }
        QStringList mots;
        json_.tableau([&] {
            QString mot;
            champs_.texte(nom, mot);
            if (!mot.isEmpty())
                mots << mot;
        });
        if (mots.size() > plusdemotscles)
            signale_(probleme::tropdemotscles, {}, false);
        std::copy_n(mots.begin(), std::min(mots.size(), plusdemotscles), fiche_.entete.motscles.begin());
    }

    void paragraphes(const QString& nom) {
        if (json_.genre() != LecteurJson::Genre::Tableau) {
            champs_.nulou(nom);
            return;
        }
        corps_ = true;
        json_.tableau([&] {
            if (json_.genre() != LecteurJson::Genre::Objet) {
                champs_.nature(nom);
                json_.passe();
                return;
            }
            QString style;
            QString texte;
            json_.objet([&](const QString& membre) {
                if (membre == u"style")
                    champs_.texte(membre, style);
                else if (membre == u"texte" && (inclut_ || json_.genre() != LecteurJson::Genre::Texte))
                    champs_.texte(membre, texte);
                else if (membre == u"texte")
                    json_.passe();
                else
                    champs_.inconnu(membre);
            });
            if (json_.juste() && !styledunom(style))
                signale_(probleme::styleinconnu, style, false);
            chercheinclusions(texte, [this](QStringView cle) { inclusion(cle); });
        });
    }

    void inclusion(QStringView texte) {
        const CleDocument cle = lirecle(texte);
        if (cle != pasdecle)
            fiche_.inclusions.push_back(cle);
    }

    void corpsourtf() {
        if (corps_ != rtf_.isEmpty()) {
            signale_(probleme::corpsourtf, {}, false);
            return;
        }
        if (!rtf_.isEmpty())
            fichierrtf();
    }

    void fichierrtf() {
        const QString chemin = QDir::cleanPath(rtf_);
        const QString racine = dossier_.canonicalPath();
        const QFileInfo info(dossier_.filePath(chemin));
        if (QDir::isAbsolutePath(chemin) || chemin == u".."_s || chemin.startsWith(u"../"_s) ||
            (info.exists() && !info.canonicalFilePath().startsWith(racine + u'/'))) {
            signale_(probleme::horsdudossier, rtf_, false);
            return;
        }
        QFile fichier(info.filePath());
        if (!info.isFile() || !fichier.open(QIODevice::ReadOnly)) {
            signale_(probleme::rtfabsent, rtf_, false);
            return;
        }
        const QByteArray contenu = fichier.readAll();
        RichText texte;
        if (!readRtf(contenu, texte)) {
            signale_(probleme::pasdurtf, rtf_, false);
            return;
        }
        fiche_.rtf = septbits(contenu);
        // Binary data stands in it: written anew, it is in seven bits.
        if (fiche_.rtf.isEmpty())
            fiche_.rtf = writeRtf(texte);
        const QString brut = texte.text();
        for (const Jeton& jeton : decoupejetons(brut)) {
            if (jeton.genre == Jeton::Genre::Inclusion)
                inclusion(jeton.texte);
        }
    }

    bool manque(const QString& nom) {
        signale_(probleme::champmanquant, nom, false);
        return false;
    }

    bool acheve() {
        Entete& e = fiche_.entete;
        if (!couleur_.isEmpty()) {
            if (const auto valeur = couleur(couleur_))
                e.couleur = *valeur;
            else
                signale_(probleme::couleur, couleur_, false);
        } else {
            e.couleur = -1;
        }
        if (noeud_ && (*noeud_ < 0 || *noeud_ > plusgrandnoeud))
            signale_(probleme::horslimites, QString::number(*noeud_), false);
        e.noeud = noeud_.value_or(0);
        if (e.titre.trimmed().isEmpty() || e.titre.size() > longueurdutitre)
            signale_(probleme::titre, QString::number(longueurdutitre), false);
        if (collection_.isEmpty())
            return manque(u"collection"_s);
        const int collection = indicedecollection(collection_);
        if (collection < 0) {
            signale_(probleme::collectioninconnue, collection_, false);
            return false;
        }
        if (!numero_)
            return manque(u"numero"_s);
        if (*numero_ < 1 || *numero_ > plusgrandnumero) {
            signale_(probleme::horslimites, QString::number(*numero_), false);
            return false;
        }
        e.cle = cledocument(collection, static_cast<int>(*numero_));
        return true;
    }

    LecteurJson json_;
    Champs champs_;
    QByteArrayView ligne_;
    const QDir& dossier_;
    Fiche& fiche_;
    const Signale& signale_;
    QString collection_, couleur_, rtf_;
    std::optional<qint64> numero_, noeud_;
    bool corps_ = false;
    bool inclut_ = false; ///< the paragraphs must be looked at for inclusions
};

} // namespace

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

bool litdocument(QByteArrayView ligne, const QDir& dossier, Fiche& fiche, const Signale& signale) {
    return LectureDeDocument(ligne, dossier, fiche, signale).lit();
}

std::vector<Paragraphe> litparagraphes(QByteArrayView ligne) {
    std::vector<Paragraphe> paragraphes;
    LecteurJson json(ligne);
    json.objet([&](const QString& nom) {
        if (nom != u"corps" || json.genre() != LecteurJson::Genre::Tableau) {
            json.passe();
            return;
        }
        paragraphes.clear();
        json.tableau([&] {
            Paragraphe paragraphe;
            json.objet([&](const QString& membre) {
                if (json.genre() != LecteurJson::Genre::Texte)
                    json.passe();
                else if (membre == u"style")
                    paragraphe.style = styledunom(json.texte()).value_or(StyleSource::Alinea);
                else if (membre == u"texte")
                    paragraphe.texte = json.texte();
                else
                    json.passe();
            });
            paragraphes.push_back(std::move(paragraphe));
        });
    });
    return paragraphes;
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
    if (signalefaute(json, ligne, signale))
        return false;
    if (noeud.libelle.trimmed().isEmpty())
        signale(probleme::champmanquant, u"libelle"_s, false);
    noeud.collection = indicedecollection(collection);
    if (noeud.collection < 0)
        signale(collection.isEmpty() ? probleme::champmanquant : probleme::collectioninconnue,
                collection.isEmpty() ? u"collection"_s : collection, false);
    if (!numero) {
        signale(probleme::champmanquant, u"noeud"_s, false);
        return false;
    }
    if (*numero < 1 || *numero > plusgrandnoeud) {
        signale(probleme::horslimites, QString::number(*numero), false);
        return false;
    }
    noeud.numero = *numero;
    noeud.parent = parent.value_or(0);
    noeud.ordre = ordre.value_or(0);
    return noeud.collection >= 0;
}

namespace {

using SignaleLigne = std::function<void(qint64, int, const QString&, bool)>;

class LectureDeCollection {
public:
    LectureDeCollection(QByteArrayView contenu, Reglagesdecollection& reglages, const SignaleLigne& signale)
        : contenu_(contenu), json_(contenu),
          signale_([this, &signale](int id, const QString& argument, bool avertissement) {
              signale(ligne(), id, argument, avertissement);
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
        signalefaute(json_, contenu_, signale_);
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
                signale_(probleme::champmanquant, numero ? u"libelle"_s : u"numero"_s, false);
                return;
            }
            type.numero = *numero;
            for (const TypeDeDocument& autre : reglages_.types) {
                if (autre.numero == type.numero || autre.libelle == type.libelle)
                    signale_(probleme::cleendouble, type.libelle, false);
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
            signale_(probleme::styleinconnu, nom, false);
        else if (section.contains(u'{') || section.contains(u'}'))
            signale_(probleme::balisage, section, false);
        else
            reglages_.sections[static_cast<std::size_t>(*style)] = section;
    }

    void unecouleur(const QString& code) {
        const int collection = indicedecollection(code);
        QString texte;
        champs_.texte(code, texte);
        if (!json_.juste())
            return;
        const auto valeur = couleur(texte);
        if (collection < 0)
            signale_(probleme::collectioninconnue, code, false);
        else if (!valeur)
            signale_(probleme::couleur, texte, false);
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

void litcollection(QByteArrayView contenu, Reglagesdecollection& reglages, const SignaleLigne& signale) {
    LectureDeCollection(contenu, reglages, signale).lit();
}

} // namespace velm
