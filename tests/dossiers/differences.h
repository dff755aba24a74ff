#pragma once
// What is drawn and what is stored, in the form of the step-by-step models.
#include "modele.h"
#include "platform/controls/listitems.h"

namespace velm::test {

/// A line for each node, each before what is below it: its depth, key, text, pictures and tag.
inline QString dessinnoeuds(const TreeNodes& noeuds) {
    QStringList lignes;
    std::vector<int> reste{noeuds.childAt(0, 0)};
    while (!reste.empty()) {
        const int un = reste.back();
        reste.pop_back();
        lignes << QString::number(noeuds.level(un)) + u'|' + noeuds.key(un) + u'|' + noeuds.text(un) + u'|' +
                      noeuds.image(un) + u'|' + noeuds.selectedImage(un) + u'|' + noeuds.tag(un);
        for (int place = noeuds.children(un) - 1; place >= 0; --place)
            reste.push_back(noeuds.childAt(un, place));
    }
    return lignes.join(u'\n');
}

inline QString dessinelements(const ListItems& elements) {
    QStringList lignes;
    for (int i = 1; i <= elements.count(); ++i)
        lignes << elements.key(i) + u'|' + elements.text(i) + u'|' + elements.image(i);
    return lignes.join(u'\n');
}

/// The first table that differs, or nothing; rows in any order.
inline QString differencedestables(const TablesModele& ici, TablesModele attendues) {
    const auto ecrit = [](const auto& rangees) { return QString::fromStdString(testing::PrintToString(rangees)); };
    std::sort(attendues.arborescences.begin(), attendues.arborescences.end(),
              [](const auto& a, const auto& b) { return a.numero < b.numero; });
    std::sort(attendues.donnees.begin(), attendues.donnees.end(), [](const auto& a, const auto& b) {
        return std::pair(a.dossier, a.place) < std::pair(b.dossier, b.place);
    });
    if (ici.arborescences != attendues.arborescences)
        return u"arborescences:\n%1\nau lieu de\n%2"_s.arg(ecrit(ici.arborescences), ecrit(attendues.arborescences));
    if (ici.donnees != attendues.donnees)
        return u"données:\n%1\nau lieu de\n%2"_s.arg(ecrit(ici.donnees), ecrit(attendues.donnees));
    return ici.dernoarborescence == attendues.dernoarborescence ? QString() : u"paramètres"_s;
}

} // namespace velm::test
