#include "search/typeschoisis.h"

namespace velm {

TypesChoisis TypesChoisis::lit(QStringView statut) {
    TypesChoisis types;
    for (int collection = 0; collection < nombredecollections; ++collection)
        types.change(collection, collection >= statut.size() || statut[collection] != u'0');
    return types;
}

TypesChoisis TypesChoisis::decodes(QStringView codes) {
    TypesChoisis types;
    for (int collection = 0; collection < nombredecollections; ++collection) {
        bool la = false;
        for (qsizetype ici = 0; ici < codes.size(); ici += 2)
            la = la || codes.mid(ici, 2) == typedindice(collection);
        types.change(collection, la);
    }
    return types;
}

QString TypesChoisis::statut() const {
    QString texte;
    for (int collection = 0; collection < nombredecollections; ++collection)
        texte += enfonce(collection) ? u'1' : u'0';
    return texte;
}

QStringList TypesChoisis::liste() const {
    QStringList codes;
    for (int collection = 0; collection < nombredecollections; ++collection) {
        if (enfonce(collection))
            codes << typedindice(collection);
    }
    return codes;
}

} // namespace velm
