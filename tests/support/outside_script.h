#pragma once
// Doubles of the outside world: they record what was asked of it and answer as told.
#include "platform/paper/jobpages.h"
#include "platform/system/courrier.h"
#include "platform/system/drives.h"
#include "platform/system/imprimante.h"
#include "platform/system/outside.h"
#include "platform/system/process.h"

#include <optional>
#include <vector>

namespace velm::test {

class ProcessusScript final : public Processus {
public:
    struct Start {
        QString program;
        QStringList arguments;
        QString folder;
    };
    std::vector<Start> starts;
    bool works = true;

    bool runDetached(const QString& program, const QStringList& arguments, const QString& folder) override {
        starts.push_back({program, arguments, folder});
        return works;
    }
};

class NavigateurScript final : public Navigateur {
public:
    QStringList urls;
    QStringList mails;
    QStringList files;
    Handed answer = Handed::Yes;

    Handed openUrl(const QString& address) override {
        urls.append(address);
        return answer;
    }
    Handed mail(const QString& address) override {
        mails.append(address);
        return answer;
    }
    bool openFile(const QString& path) override {
        files.append(path);
        return answer == Handed::Yes;
    }
};

class CourrierScript final : public Courrier {
public:
    std::vector<Courriel> mails;
    /// What goes wrong, if anything does.
    std::optional<Failure> failure;
    FileError error;

    void compose(const Courriel& courriel, Failed failed) override {
        mails.push_back(courriel);
        if (failure)
            failed(*failure, error);
    }
};

class PressePapiersScript final : public PressePapiers {
public:
    ContenuPressePapiers contenu;
    void pose(const ContenuPressePapiers& nouveau) override { contenu = nouveau; }
    QString texte() const override { return contenu.texte; }
};

class ImprimanteScript final : public Imprimante {
public:
    std::vector<PaperTable> tableaux;
    /// What was printed, in its order.
    struct Travail {
        QString titre;
        JobPages pages;
    };
    std::vector<Travail> travaux;
    bool works = true;
    std::vector<Question> questions;
    ReponseImpression reponse = ReponseImpression::Tout;
    PrintDevice::Sheet papier = sheetA4;
    int configurations = 0;

    bool imprime(const PaperTable& tableau) override {
        tableaux.push_back(tableau);
        return works;
    }
    ReponseImpression demande(const Question& question) override {
        questions.push_back(question);
        return reponse;
    }
    PrintDevice::Sheet feuille() const override { return papier; }
    void imprimepages(const JobPages& pages, const QString& titre, const Avance& avance) override {
        if (!works)
            throw PrintFailure("no printer");
        for (int page = 0; page < static_cast<int>(pages.pages.size()); ++page) {
            if (avance && !avance(page))
                throw PrintFailure("stopped");
        }
        travaux.push_back({titre, pages});
    }
    void configure() override { ++configurations; }
};

class LecteursScript final : public Lecteurs {
public:
    QList<Lecteur> lecteurs;
    QList<Lecteur> liste() const override { return lecteurs; }
};

} // namespace velm::test
