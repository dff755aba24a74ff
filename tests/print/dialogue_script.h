#pragma once
// A print dialog that answers as told and remembers what it was asked.
#include "platform/system/imprimante.h"

#include <deque>
#include <gtest/gtest.h>
#include <vector>

namespace velm::test {

class DialogueScript final : public DialogueImpression {
public:
    std::deque<ReponseImpression> reponses;
    std::vector<Question> questions;

    ReponseImpression demande(const Question& question) override {
        questions.push_back(question);
        if (reponses.empty()) {
            ADD_FAILURE() << "no answer for the print dialog";
            return ReponseImpression::Annule;
        }
        const ReponseImpression reponse = reponses.front();
        reponses.pop_front();
        return reponse;
    }
};

} // namespace velm::test
