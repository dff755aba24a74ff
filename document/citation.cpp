#include "document/citation.h"

#include "core/langue.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace velm {

using namespace Qt::Literals::StringLiterals;

namespace {

std::optional<QString> elementde(QStringView nom, const ElementsCitation& elements) {
    const std::array<std::pair<QStringView, const QString*>, 7> tous{{{u"article", &elements.article},
                                                                      {u"titre", &elements.titre},
                                                                      {u"collection", &elements.collection},
                                                                      {u"source", &elements.source},
                                                                      {u"date", &elements.date},
                                                                      {u"clé", &elements.cle},
                                                                      {u"cle", &elements.cle}}};
    for (const auto& [celui, texte] : tous) {
        if (celui == nom)
            return texte->simplified();
    }
    return std::nullopt;
}

bool ouvre(QChar signe) {
    return signe == u'(' || signe == u'[';
}

QChar fermeture(QChar signe) {
    return signe == u'(' ? u')' : u']';
}

/// Where a bracket closes; -1 where it does not.
qsizetype findebloc(QStringView modele, qsizetype debut) {
    int profondeur = 0;
    for (qsizetype ici = debut; ici < modele.size(); ++ici) {
        if (modele[ici] == modele[debut])
            ++profondeur;
        else if (modele[ici] == fermeture(modele[debut]) && --profondeur == 0)
            return ici;
    }
    return -1;
}

/// What closes what stands before it: all up to a sign that parts.
QStringView avantseparateur(QStringView entre) {
    const auto parte = [](QChar signe) { return QStringView(u",;:-–").contains(signe); };
    const auto place = std::ranges::find_if(entre, parte);
    return place == entre.end() ? QStringView() : entre.first(place - entre.begin());
}

/// Puts a line together of values and what stands between them.
class Ligne {
public:
    void entre(QStringView texte) { attente_ += texte; }
    void valeur(const QString& texte) {
        if (!vue_)
            debut_ = std::exchange(attente_, {});
        vue_ = true;
        sautee_ = texte.isEmpty();
        if (sautee_) {
            if (pleine_)
                garde_ += avantseparateur(attente_);
        } else {
            ligne_ += (pleine_ ? garde_ + attente_ : debut_) + texte;
            garde_.clear();
            pleine_ = true;
        }
        attente_.clear();
    }
    bool pleine() const { return pleine_; }
    QString texte() const {
        if (vue_ && !pleine_)
            return {};
        // Behind a last one that is empty only what ends a sentence stays.
        const bool separateur = sautee_ && !attente_.isEmpty() && QStringView(u",;:-– ").contains(attente_.front());
        return ligne_ + garde_ + (separateur ? QString() : attente_);
    }

private:
    QString debut_; ///< before the first value
    QString ligne_;
    QString garde_;   ///< closes the last value, though the one behind it is empty
    QString attente_; ///< since the last value
    bool vue_ = false;
    bool sautee_ = false; ///< the last value is empty
    bool pleine_ = false; ///< one is not
};

/// `nommes`: set where a known name stands in it.
QString remplit(QStringView modele, const ElementsCitation& elements, bool& nommes, bool& pleine) {
    Ligne ligne;
    for (qsizetype ici = 0; ici < modele.size();) {
        if (ouvre(modele[ici])) {
            const qsizetype fin = findebloc(modele, ici);
            if (fin > ici) {
                bool dedans = false;
                bool plein = false;
                const QString bloc = remplit(modele.sliced(ici + 1, fin - ici - 1), elements, dedans, plein);
                const QString entier = modele[ici] + bloc + modele[fin];
                if (dedans)
                    ligne.valeur(plein ? entier : QString());
                else
                    ligne.entre(entier);
                nommes = nommes || dedans;
                ici = fin + 1;
                continue;
            }
        }
        if (modele[ici] == u'{') {
            const qsizetype fin = modele.indexOf(u'}', ici);
            const auto valeur = fin < 0 ? std::nullopt : elementde(modele.sliced(ici + 1, fin - ici - 1), elements);
            if (valeur) {
                nommes = true;
                ligne.valeur(*valeur);
                ici = fin + 1;
                continue;
            }
        }
        ligne.entre(modele.sliced(ici, 1));
        ++ici;
    }
    pleine = ligne.pleine();
    return ligne.texte();
}

/// The number of an article that a paragraph begins; empty for any other one.
QString articlede(QStringView paragraphe) {
    if (!paragraphe.startsWith(u"art", Qt::CaseInsensitive))
        return {};
    constexpr qsizetype debut = 60; // an article's number is never further in
    static const QRegularExpression tete(
        u"^art(?:icle|\\.)\\s*((?:[LRDA]\\*?\\.?\\s?)?\\d+(?:er)?(?:[-\u2010\u2011\u2013.]\\d+)*"
        "(?:\\s(?:bis|ter|quater))?|premier|unique)(?=\\W|$)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return tete.match(paragraphe.first(std::min(paragraphe.size(), debut)).toString()).captured(1);
}

struct Article {
    qsizetype debut;
    QString numero;
};

std::vector<Article> articlesde(QStringView texte) {
    std::vector<Article> tous;
    for (qsizetype ici = 0; ici < texte.size();) {
        qsizetype fin = texte.indexOf(u'\n', ici);
        fin = fin < 0 ? texte.size() : fin;
        if (QString numero = articlede(texte.sliced(ici, fin - ici)); !numero.isEmpty())
            tous.push_back({ici, std::move(numero)});
        ici = fin + 1;
    }
    return tous;
}

} // namespace

QString citation(const QString& modele, const ElementsCitation& elements) {
    bool nommes = false;
    bool pleine = false;
    return remplit(modele, elements, nommes, pleine).simplified();
}

QString articlescites(QStringView texte, qsizetype debut, qsizetype longueur, const Libelles& mots) {
    const std::vector<Article> tous = articlesde(texte);
    if (tous.size() < 2 || longueur <= 0 || longueur >= texte.size())
        return {};
    QString premier;
    QString dernier;
    for (const Article& article : tous) {
        if (article.debut >= debut + longueur)
            break;
        if (premier.isEmpty() || article.debut <= debut)
            premier = article.numero;
        dernier = article.numero;
    }
    if (premier.isEmpty())
        return {};
    return premier == dernier ? remplace(mots(Texte::CitationArticle), {premier})
                              : remplace(mots(Texte::CitationArticles), {premier, dernier});
}

} // namespace velm
