#pragma once
// The state of the one print job that there can be, shared by what prints documents and what prints dossiers.

namespace velm {

struct EtatImpression {
    static constexpr int aucuneposition = -1;

    int numeropage = 0;                    ///< of the last sheet that got its header and footer; 0 between jobs
    bool travailencours = false;           ///< a job is open, its last sheet not ejected
    int positioncourante = aucuneposition; ///< where the next document begins on that sheet, in twips
    int decalagex = 0;                     ///< what the printer cannot print at the left and at the top
    int decalagey = 0;

    /// No job is open.
    void ferme() {
        numeropage = 0;
        travailencours = false;
        positioncourante = aucuneposition;
    }

    friend bool operator==(const EtatImpression&, const EtatImpression&) = default;
};

} // namespace velm
