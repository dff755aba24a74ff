#include "document/plat.h"

#include <QHash>

#include <algorithm>

namespace velm::passes {

Plat::Plat(const RichText& texte)
    : texte_(texte.text()), derniercaractere_(texte.tailCharacter()), dernier_(texte.tailParagraph()) {
    texte.forEachRun(0, texte.length(), [this](qsizetype debut, qsizetype nombre, FormatId format) {
        ajoutecourse(debut + nombre, format);
    });
    for (qsizetype i = texte_.indexOf(u'\n'); i >= 0; i = texte_.indexOf(u'\n', i + 1))
        lignes_.push_back({i, texte.paraFormatIdAt(i)});
}

Plat::Plat(const RichText& texte, RichText& hote) : Plat(texte) {
    QHash<FormatId, FormatId> caracteres;
    QHash<FormatId, FormatId> paragraphes;
    std::vector<std::int32_t> objets(texte.objects().size(), -1);
    const auto caractere = [&](FormatId id) {
        CharFormat format = texte.charFormat(id);
        const auto objet = static_cast<std::size_t>(format.object);
        if (format.object >= 0 && objet < objets.size()) {
            if (objets[objet] < 0)
                objets[objet] = hote.addObject(texte.objects()[objet]);
            format.object = objets[objet];
        }
        return hote.intern(format);
    };
    for (Course& course : courses_) {
        if (!caracteres.contains(course.format))
            caracteres.insert(course.format, caractere(course.format));
        course.format = caracteres.value(course.format);
    }
    for (Ligne& ligne : lignes_) {
        if (!paragraphes.contains(ligne.format))
            paragraphes.insert(ligne.format, hote.intern(texte.paraFormat(ligne.format)));
        ligne.format = paragraphes.value(ligne.format);
    }
}

void Plat::rend(RichText& texte) const {
    texte.remove(0, texte.length());
    qsizetype debut = 0;
    std::size_t i = 0;
    const auto ajoute = [&](qsizetype fin, FormatId caractere, FormatId paragraphe) {
        texte.append(QStringView(texte_).sliced(debut, fin - debut), caractere, paragraphe);
        debut = fin;
    };
    std::vector<qsizetype> partagees;
    for (const Course& course : courses_) {
        // A line end goes in whole, even when its two halves differ.
        const bool partage = course.fin < texte_.size() && texte_[course.fin] == u'\n';
        if (partage)
            partagees.push_back(course.fin);
        const qsizetype fin = course.fin + (partage ? 1 : 0);
        // One piece for each run and each change of paragraph format: only a line end's format counts.
        FormatId paragraphe = this->paragraphe(i);
        for (; i < lignes_.size() && lignes_[i].place < fin; ++i) {
            if (lignes_[i].format != paragraphe)
                ajoute(lignes_[i - 1].place + 1, course.format, paragraphe);
            paragraphe = lignes_[i].format;
        }
        if (i == lignes_.size() && i > 0 && lignes_[i - 1].place + 1 > debut && lignes_[i - 1].place + 1 < fin)
            ajoute(lignes_[i - 1].place + 1, course.format, paragraphe);
        if (debut < fin)
            ajoute(fin, course.format, i == lignes_.size() && texte_[fin - 1] != u'\n' ? dernier_ : paragraphe);
    }
    for (const qsizetype place : partagees)
        texte.changeCharacters(place, 1, {CharChange::All, texte.charFormat(caractere(place))});
    texte.setTail(derniercaractere_, dernier_);
}

void Plat::prendfin(const Plat& de) {
    derniercaractere_ = de.derniercaractere_;
    dernier_ = de.dernier_;
}

std::vector<Plat::Course>::const_iterator Plat::course(qsizetype place) const {
    return std::upper_bound(courses_.begin(), courses_.end(), place,
                            [](qsizetype p, const Course& course) { return p < course.fin; });
}

FormatId Plat::caractere(qsizetype place) const {
    return course(place)->format;
}

std::size_t Plat::ligne(qsizetype place) const {
    const auto trouvee = std::lower_bound(lignes_.begin(), lignes_.end(), place,
                                          [](const Ligne& ligne, qsizetype p) { return ligne.place < p; });
    return static_cast<std::size_t>(trouvee - lignes_.begin());
}

void Plat::ajoute(QStringView texte, FormatId caractere, FormatId paragraphe) {
    if (texte.isEmpty())
        return;
    const qsizetype decalage = texte_.size();
    texte_.append(texte);
    ajoutecourse(texte_.size(), caractere);
    for (qsizetype i = texte.indexOf(u'\n'); i >= 0; i = texte.indexOf(u'\n', i + 1))
        lignes_.push_back({i + decalage, paragraphe});
}

void Plat::raccourcit(qsizetype nombre) {
    texte_.chop(nombre);
    while (!courses_.empty() && courses_.back().fin > texte_.size()) {
        courses_.back().fin = texte_.size();
        if (const qsizetype debut = courses_.size() > 1 ? courses_[courses_.size() - 2].fin : 0; debut >= texte_.size())
            courses_.pop_back();
    }
}

FormatId sansobjet(RichText& texte, FormatId format) {
    if (texte.charFormat(format).object < 0)
        return format;
    CharFormat sans = texte.charFormat(format);
    sans.object = -1;
    return texte.intern(sans);
}

} // namespace velm::passes
