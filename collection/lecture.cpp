#include "collection/lecture.h"

#include "collection/balisage.h"
#include "collection/champs.h"
#include "collection/ecritrtf.h"
#include "collection/jetons.h"
#include "core/texte.h"
#include "platform/richtext/rtf.h"
#include "platform/system/files.h"

#include <QDir>

#include <algorithm>

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr qint64 plusgrandnumero = 999999;
constexpr qsizetype plusdemotscles = 3;
constexpr qsizetype longueurdutitre = 255;

class LectureDeDocument {
public:
    LectureDeDocument(QByteArrayView ligne, const FichiersSource& fichiers, Fiche& fiche, const Signale& signale)
        : json_(ligne), champs_(json_, signale), ligne_(ligne), fichiers_(fichiers), fiche_(fiche), signale_(signale),
          inclut_(ligne.contains("{I=") || ligne.contains("\\u")) {}

    bool lit() {
        if (json_.genre() == LecteurJson::Genre::Objet)
            json_.objet([this](const QString& nom) { champ(nom); });
        else
            json_.passe();
        json_.fin();
        if (signalefaute(json_, signale_))
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
            signale_(Texte::TropDeMotsCles, {}, false);
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
                signale_(Texte::StyleInconnu, style, false);
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
            signale_(Texte::CorpsOuRtf, {}, false);
            return;
        }
        if (!rtf_.isEmpty())
            fichierrtf();
    }

    void fichierrtf() {
        if (fichiers_.dehors(rtf_)) {
            signale_(Texte::HorsDuDossier, rtf_, false);
            return;
        }
        const FileBytes lu = fichiers_.lit(QDir::cleanPath(rtf_));
        if (!lu.ok()) {
            const bool absent = lu.error.kind == Obstacle::Missing;
            signale_(absent ? Texte::RtfAbsent : Texte::FichierIllisible, rtf_, false,
                     absent ? Obstacle::None : lu.error.kind);
            return;
        }
        RichText texte;
        if (!readRtf(lu.bytes, texte)) {
            signale_(Texte::PasDuRtf, rtf_, false);
            return;
        }
        fiche_.fichierrtf = rtf_;
        fiche_.rtf = septbits(lu.bytes);
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
        signale_(Texte::ChampManquant, nom, false);
        return false;
    }

    bool acheve() {
        Entete& e = fiche_.entete;
        if (!couleur_.isEmpty()) {
            if (const auto valeur = lirecouleur(couleur_))
                e.couleur = *valeur;
            else
                signale_(Texte::CouleurIncorrecte, couleur_, false);
        } else {
            e.couleur = -1;
        }
        if (noeud_ && (*noeud_ < 0 || *noeud_ > plusgrandnoeud))
            signale_(Texte::NumeroHorsLimites, QString::number(*noeud_), false);
        e.noeud = noeud_.value_or(0);
        if (e.titre.trimmed().isEmpty() || e.titre.size() > longueurdutitre)
            signale_(Texte::TitreVideOuTropLong, QString::number(longueurdutitre), false);
        if (collection_.isEmpty())
            return manque(u"collection"_s);
        const int collection = indicedecollection(collection_);
        if (collection < 0) {
            signale_(Texte::CollectionInconnue, collection_, false);
            return false;
        }
        if (!numero_)
            return manque(u"numero"_s);
        if (*numero_ < 1 || *numero_ > plusgrandnumero) {
            signale_(Texte::NumeroHorsLimites, QString::number(*numero_), false);
            return false;
        }
        e.cle = cledocument(collection, static_cast<int>(*numero_));
        return true;
    }

    LecteurJson json_;
    Champs champs_;
    QByteArrayView ligne_;
    const FichiersSource& fichiers_;
    Fiche& fiche_;
    const Signale& signale_;
    QString collection_, couleur_, rtf_;
    std::optional<qint64> numero_, noeud_;
    bool corps_ = false;
    bool inclut_ = false; ///< the paragraphs must be looked at for inclusions
};

} // namespace

bool litdocument(QByteArrayView ligne, const FichiersSource& fichiers, Fiche& fiche, const Signale& signale) {
    return LectureDeDocument(ligne, fichiers, fiche, signale).lit();
}

namespace {

/// Line ends of any kind become line feeds, other controls blanks; a tab stays.
QString sanscontroles(QString texte) {
    const auto controle = [](QChar c) { return c < u' ' && c != u'\t' && c != u'\n'; };
    if (std::none_of(texte.cbegin(), texte.cend(), controle))
        return texte;
    texte.replace(u"\r\n"_s, u"\n"_s);
    texte.replace(u'\r', u'\n');
    std::replace_if(texte.begin(), texte.end(), controle, u' ');
    return texte;
}

} // namespace

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
                const bool texte = json.genre() == LecteurJson::Genre::Texte;
                if (texte && membre == u"style")
                    paragraphe.style = styledunom(json.texte()).value_or(StyleSource::Alinea);
                else if (texte && membre == u"texte")
                    paragraphe.texte = sanscontroles(json.texte());
                else
                    json.passe();
            });
            paragraphes.push_back(std::move(paragraphe));
        });
    });
    return paragraphes;
}

} // namespace velm
