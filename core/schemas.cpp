#include "core/schemas.h"

namespace velm {
namespace {

using namespace Qt::Literals::StringLiterals;

FieldDef text(const QString& name) {
    return {name, FieldType::Text};
}

FieldDef number(const QString& name) {
    return {name, FieldType::Long};
}

IndexField plain(const QString& field) {
    return {field, false};
}

IndexField folded(const QString& field) {
    return {field, true};
}

TableDef documents() {
    return {u"données"_s,
            {text(u"référence"_s),
             text(u"numart"_s),
             number(u"numeroarborescence"_s),
             {u"Date"_s, FieldType::Date},
             text(u"titre"_s),
             text(u"motclé1"_s),
             text(u"motclé2"_s),
             text(u"motclé3"_s),
             text(u"Source"_s),
             text(u"typededocument"_s),
             text(u"datecreation"_s),
             text(u"datemodif"_s),
             number(u"BackColor"_s),
             {u"contenu"_s, FieldType::Memo}},
            {{u"primarykey"_s, {plain(u"référence"_s), plain(u"numart"_s)}, true},
             {u"numerodutype"_s, {plain(u"numeroarborescence"_s)}},
             {u"idate"_s, {plain(u"Date"_s), plain(u"référence"_s), plain(u"numart"_s)}},
             {u"icattitre"_s, {plain(u"référence"_s), folded(u"titre"_s), plain(u"numart"_s)}},
             // For the query of the documents of a keyword.
             {u"imotclé1"_s, {plain(u"motclé1"_s)}},
             {u"imotclé2"_s, {plain(u"motclé2"_s)}},
             {u"imotclé3"_s, {plain(u"motclé3"_s)}}},
            u"contenu"_s};
}

TableDef tree() {
    return {u"arborescences"_s,
            {number(u"numerodutype"_s), number(u"dépendance"_s), text(u"référence"_s), number(u"ordre"_s),
             text(u"typededonnées"_s), number(u"nbarticles"_s)},
            {{u"primarykey"_s, {plain(u"numerodutype"_s)}, true},
             // Serves the query for the children of a node.
             {u"enfants"_s, {plain(u"référence"_s), plain(u"dépendance"_s), plain(u"ordre"_s)}}},
            {}};
}

TableDef articleNumbers() {
    // The number comes first, so that a seek by number alone walks across the collections.
    return {u"generelien"_s,
            {text(u"référence"_s), text(u"numart"_s), text(u"numarticle"_s), text(u"numtitre"_s), text(u"titre"_s)},
            {{u"primarykey"_s, {folded(u"numarticle"_s), plain(u"référence"_s), plain(u"numart"_s)}},
             {u"inumtitre"_s, {folded(u"numtitre"_s), plain(u"référence"_s), plain(u"numart"_s)}}},
            {}};
}

TableDef links() {
    return {
        u"liens"_s,
        {text(u"référencedépart"_s), text(u"numartdépart"_s), text(u"référencearrivée"_s), text(u"numartarrivée"_s)},
        {{u"liens"_s, {plain(u"référencedépart"_s), plain(u"numartdépart"_s)}},
         {u"correlats"_s, {plain(u"référencearrivée"_s), plain(u"numartarrivée"_s)}}},
        {}};
}

TableDef items() {
    return {u"données"_s,
            {number(u"arborescence"_s), number(u"noordre"_s), text(u"référence"_s), text(u"numart"_s), text(u"titre"_s),
             number(u"positiondébut"_s), number(u"positionfin"_s)},
            {{u"primarykey"_s, {plain(u"arborescence"_s), plain(u"noordre"_s)}, true},
             {u"iref"_s, {plain(u"référence"_s), plain(u"numart"_s), plain(u"noordre"_s)}}},
            {}};
}

TableDef dossiers() {
    return {u"arborescences"_s,
            {number(u"numerodutype"_s), number(u"dépendance"_s), number(u"ordre"_s), text(u"typededonnées"_s),
             number(u"nbarticles"_s)},
            {{u"primarykey"_s, {plain(u"numerodutype"_s)}, true},
             {u"enfants"_s, {plain(u"dépendance"_s), plain(u"ordre"_s)}}},
            {}};
}

} // namespace

const Schema& corpusSchema() {
    static const Schema schema{{documents(),
                                tree(),
                                {u"paramètres"_s, {text(u"nbarticles"_s), text(u"titre"_s)}, {}, {}},
                                {u"motclés"_s,
                                 {text(u"motcle"_s), number(u"nbarticle"_s)},
                                 {{u"primarykey"_s, {folded(u"motcle"_s)}, true}},
                                 {}},
                                {u"typedocument"_s,
                                 {text(u"typedocument"_s), number(u"numerodutype"_s), number(u"ordre"_s)},
                                 {{u"iordre"_s, {plain(u"ordre"_s)}}},
                                 {}},
                                links(),
                                {u"dico"_s,
                                 {text(u"mot"_s), {u"liste"_s, FieldType::Bytes}},
                                 {{u"primarykey"_s, {folded(u"mot"_s)}, true}},
                                 {}},
                                articleNumbers(),
                                // Bodies as plain text, folded, under the row ids of their documents.
                                {u"textes"_s, {number(u"version"_s), {u"texte"_s, FieldType::Bytes}}, {}, {}, true}},
                               true};
    return schema;
}

const Schema& dossiersSchema() {
    static const Schema schema{{dossiers(), items(), {u"paramètres"_s, {number(u"dernoarborescence"_s)}, {}, {}}},
                               false};
    return schema;
}

} // namespace velm
