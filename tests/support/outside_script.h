#pragma once
// Doubles of the outside world: they record what was asked of it and answer as told.
#include "platform/system/courrier.h"
#include "platform/system/drives.h"
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
    std::vector<TableauImprime> tableaux;
    bool works = true;

    bool imprime(const TableauImprime& tableau) override {
        tableaux.push_back(tableau);
        return works;
    }
};

class LecteursScript final : public Lecteurs {
public:
    QList<Lecteur> lecteurs;
    QList<Lecteur> liste() const override { return lecteurs; }
};

} // namespace velm::test
