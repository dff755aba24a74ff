// Commands that look into a base.
#include "core/cle.h"
#include "core/corpus.h"
#include "core/parametres.h"
#include "core/schemas.h"
#include "core/texte.h"
#include "document/affichage.h"
#include "outil/base.h"
#include "outil/sortie.h"
#include "platform/system/files.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace velm::outil {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The form of a document that nobody sees.
class FormulaireMuet final : public FormulaireDocument {
public:
    RichTextControl& rtfRichTextBox1() override { return controle_; }
    ListesLiens* listes() override { return &listes_; }
    DocumentAffiche& document() override { return document_; }
    void changetitre(const QString&) override { trouve_ = true; }
    void activemenus() override {}
    void rafraichit() override {}
    ListeLaterale& listedesliens() override { return fermee_; }
    ListeLaterale& listedescorrelats() override { return fermee_; }

    /// The caption changes only when the document is found.
    bool trouve() const { return trouve_; }

private:
    class Fermee final : public ListeLaterale {
    public:
        bool visible() const override { return false; }
        int couleurbouton() const override { return 0; }
        void recharge(const Cle&) override {}
    };
    RichTextControl controle_;
    ListesLiens listes_;
    DocumentAffiche document_;
    Fermee fermee_;
    bool trouve_ = false;
};

struct Lien {
    QString nature;
    qsizetype debut;
    qsizetype fin;
    QString cible;
};

/// All links of the document: those to other documents, addresses of the web, addresses of mail.
template <typename Fait>
void chaquelien(const ListesLiens& l, Fait&& fait) {
    const auto liste = [&](const QString& nature, const QStringList& cibles, const ListePositions& debuts,
                           const ListePositions& fins) {
        for (qsizetype rang = 0; rang < debuts.nombre(); ++rang)
            fait(Lien{nature, debuts.valeur(rang), fins.valeur(rang), cibles.value(rang)});
    };
    liste(u"lien"_s, l.Listehyperlien, l.Listestarthyperlien, l.Listeendhyperlien);
    liste(u"url"_s, l.ListeUrl, l.ListeStartUrl, l.ListeEndUrl);
    liste(u"mail"_s, l.ListeEmail, l.ListeStartEmail, l.ListeEndEmail);
}

QJsonArray liensjson(const ListesLiens& listes, const QString& texte) {
    QJsonArray tous;
    chaquelien(listes, [&](const Lien& lien) {
        tous.append(QJsonObject{{u"nature"_s, lien.nature},
                                {u"debut"_s, lien.debut},
                                {u"fin"_s, lien.fin},
                                {u"texte"_s, texte.mid(lien.debut, lien.fin - lien.debut)},
                                {u"cible"_s, lien.cible}});
    });
    return tous;
}

void ecritliens(const Contexte& contexte, const ListesLiens& listes, const QString& texte) {
    chaquelien(listes, [&](const Lien& lien) {
        contexte.ligne(QStringList{QString::number(lien.debut), QString::number(lien.fin), lien.nature, lien.cible,
                                   texte.mid(lien.debut, lien.fin - lien.debut)}
                           .join(u'\t'));
    });
}

QJsonObject proprietes(const QString& cle, const DocumentAffiche& d) {
    return {{u"cle"_s, cle},
            {u"titre"_s, d.titre},
            {u"motscles"_s, QJsonArray{d.motcle1, d.motcle2, d.motcle3}},
            {u"source"_s, d.Source},
            {u"date"_s, d.datetext},
            {u"datecreation"_s, d.datecreation},
            {u"datemodif"_s, d.datemodif},
            {u"type"_s, d.typedocument},
            {u"noeud"_s, d.numeroarborescence}};
}

QByteArray jsonligne(const QJsonDocument& json) {
    return json.toJson(QJsonDocument::Indented);
}

/// What the options of the command ask for.
struct Demande {
    bool rtf = false;
    bool liens = false;
    bool condense = false;
    bool json = false;
};

void ecritdocument(Contexte& contexte, const QString& cle, FormulaireMuet& formulaire, const Demande& demande) {
    const QString texte = formulaire.rtfRichTextBox1().text();
    if (demande.json) {
        QJsonObject objet = proprietes(cle, formulaire.document());
        objet.insert(u"texte"_s, texte);
        objet.insert(u"liens"_s, liensjson(*formulaire.listes(), texte));
        if (demande.rtf)
            objet.insert(u"rtf"_s, QString::fromLatin1(formulaire.rtfRichTextBox1().textRtf()));
        contexte.ecrit(jsonligne(QJsonDocument(objet)));
    } else if (demande.rtf) {
        contexte.ecrit(formulaire.rtfRichTextBox1().textRtf());
    } else if (demande.liens) {
        ecritliens(contexte, *formulaire.listes(), texte);
    } else {
        QString lignes = texte;
        contexte.ecrit(lignes.replace(u"\r\n"_s, u"\n"_s).toUtf8() + '\n');
    }
}

} // namespace

int document(Contexte& contexte) {
    Demande demande;
    demande.json = contexte.option(u"--json"_s);
    demande.rtf = contexte.option(u"--rtf"_s);
    demande.liens = contexte.option(u"--liens"_s);
    demande.condense = contexte.option(u"--condense"_s);
    const QString base = cheminbase(contexte);

    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, base); code != Reussite)
        return code;
    // The collection's styles lie beside its base, else beside the program. The user's own settings have no say here.
    ReglagesStore sansreglages{QString()};
    Reglages reglages(sansreglages);
    QString maitre = joinPath(folderOf(base), u"master.ini");
    if (!fileExists(maitre))
        maitre = joinPath(contexte.dossierprogramme(), u"master.ini");
    reglages.choisitmaitre(maitre);
    const TableStyles styles = litstyles(reglages, contexte.langue(), littextesconstants(contexte.langue()));
    SablierMuet sablier;
    FormulaireMuet formulaire;
    const std::optional<Cle> saisie = clesaisie(contexte.arguments().first());
    if (!saisie)
        return contexte.echoue(DocumentAbsent, Texte::DocumentAbsent, contexte.arguments());
    const Cle& cle = *saisie;
    affichedocument(formulaire, cle, demande.condense, QString(),
                    {corpus, styles, sablier, [&](int indice) { return contexte.texte(libelledefenetre(indice)); }});
    if (!formulaire.trouve())
        return contexte.echoue(DocumentAbsent, Texte::DocumentAbsent, {cle.texte()});
    ecritdocument(contexte, cle.texte(), formulaire, demande);
    return Reussite;
}

int info(Contexte& contexte) {
    const bool json = contexte.option(u"--json"_s);
    const QString chemin = contexte.arguments().first();
    Corpus corpus;
    if (const int code = ouvrebase(contexte, corpus, chemin); code != Reussite)
        return code;

    QJsonObject collections;
    // A base may lack a table: that is told here, where nothing else uses it.
    const bool comptees = corpus.parametres().usable();
    for (int indice = 0; comptees && indice < nombredecollections; ++indice)
        collections.insert(typedindice(indice), corpus.compterarticles(typedindice(indice)));
    const struct {
        Texte libelle;
        const char* cle;
        Recordset& table;
    } comptes[] = {{Texte::InfoDocuments, "documents", corpus.donnees()},
                   {Texte::InfoNoeuds, "noeuds", corpus.arborescences()},
                   {Texte::InfoLiens, "liens", corpus.liens()},
                   {Texte::InfoMots, "mots", corpus.dico()},
                   {Texte::InfoMotsCles, "motscles", corpus.motcles()},
                   {Texte::InfoNumerosDArticles, "articles", corpus.generelien()},
                   {Texte::InfoTypesDeDocument, "types", corpus.typedocument()}};
    const qint64 taille = QFileInfo(chemin).size();
    if (json) {
        QJsonObject objet{{u"base"_s, chemin},
                          {u"octets"_s, taille},
                          {u"lectureseule"_s, !corpus.updatable()},
                          {u"collections"_s, collections}};
        for (const auto& compte : comptes)
            objet.insert(QString::fromLatin1(compte.cle),
                         compte.table.usable() ? QJsonValue(compte.table.recordCount()) : QJsonValue());
        contexte.ecrit(jsonligne(QJsonDocument(objet)));
        return Reussite;
    }
    const auto ecrit = [&](const QString& nom, const QString& valeur) {
        contexte.ligne(contexte.texte(Texte::LigneEtiquetee, {nom, valeur}));
    };
    ecrit(contexte.texte(Texte::InfoBase), chemin);
    ecrit(contexte.texte(Texte::InfoTaille), contexte.nombre(taille));
    ecrit(contexte.texte(Texte::InfoLectureSeule), contexte.texte(corpus.updatable() ? Texte::MotNon : Texte::MotOui));
    for (const auto& compte : comptes) {
        if (compte.table.usable())
            ecrit(contexte.texte(compte.libelle), contexte.nombre(compte.table.recordCount()));
        else
            contexte.ligne(contexte.texte(Texte::InfoTableAbsente, {compte.table.table()}));
    }
    if (!comptees)
        contexte.ligne(contexte.texte(Texte::InfoTableAbsente, {corpus.parametres().table()}));
    for (int indice = 0; comptees && indice < nombredecollections; ++indice)
        ecrit(typedindice(indice) + u' ' + contexte.texte(libelledefenetre(indice)),
              contexte.nombre(collections.value(typedindice(indice)).toInteger()));
    return Reussite;
}

} // namespace velm::outil
