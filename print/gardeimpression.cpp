#include "print/gardeimpression.h"

#include "print/impression.h"

namespace velm {

void imprimesousgarde(const std::function<void()>& travail, Dialogues& dialogues, const Libelles& texte) {
    try {
        travail();
    } catch (const PrintFailure&) {
        return; // the printer, or whoever stopped it, has said so
    } catch (const PositionHorsBornes&) {
        return; // the job goes on from where it stood, or is ended
    } catch (const FeuilleTropPetite&) {
        dialogues.message(texte(Texte::MargesSansPlace), texte(Texte::NomDuProgramme), Icone::Exclamation);
    }
}

} // namespace velm
