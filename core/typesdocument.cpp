#include "core/typesdocument.h"

namespace velm {

using namespace Qt::Literals::StringLiterals;

TypesDocument littypesdocument(Corpus& corpus) {
    TypesDocument types;
    Recordset& table = corpus.typedocument();
    table.setIndex(u"iordre"_s);
    for (table.moveFirst(); !table.eof(); table.moveNext()) {
        types.combotype << table.text(u"typedocument"_s);
        types.numerotype << table.text(u"numerodutype"_s);
    }
    return types;
}

int chercheliste(const QStringList& entrees, const QString& texte) {
    for (qsizetype rang = 0; rang < entrees.size(); ++rang) {
        if (entrees.at(rang).startsWith(texte, Qt::CaseInsensitive))
            return static_cast<int>(rang);
    }
    return -1;
}

} // namespace velm
