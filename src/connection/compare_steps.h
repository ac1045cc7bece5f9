// The steps of one comparison of a base joint with a candidate joint, one per way of pairing
// their bars; CompareJoints runs the one the method asks for.
#pragma once

#include "connection/agreement.h"
#include "connection/verdict.h"

#include <span>
#include <vector>

namespace vorna {

// The two joints as every step sees them, with what the steps share worked out once.
struct ComparedJoints {
    ComparedJoints(const Joint &base, const Joint &candidate, const AnalogyParameters &params,
                   Scrutiny scrutiny);

    const Joint &base;
    const Joint &candidate;
    const AnalogyParameters &params;
    Agreement rule;
    Scrutiny scrutiny;

    bool Explained() const { return scrutiny == Scrutiny::Explain; }
    bool Figures() const { return scrutiny != Scrutiny::Verdict; }
    const std::optional<Vec3> &BaseDirection(int k) const { return base.bars[k].direction; }
    const std::optional<Vec3> &CandidateDirection(int c) const {
        return candidate.bars[c].direction;
    }
    double BaseLength(int k) const { return base.bars[k].length; }
    double CandidateLength(int c) const { return candidate.bars[c].length; }
    // The base bar k takes the candidate's bar c: the pair's position and, with figures, its
    // deviations.
    void Take(Verdict &v, int k, int c, std::optional<double> angle, bool mirrored = false) const;
    // The nearest bar in direction among those allowed (all when allowed is empty), mirrored too
    // when mirrors count, as the figures of a base bar without partner.
    void Nearest(Verdict &v, int k, bool mirrors, std::span<const std::uint8_t> allowed) const;
};

// The first failing criterion: the reason, its base bar and angle; later failures keep it.
void Fail(Verdict &v, WhyNotReason reason, int k, std::optional<double> angle = {});

// "Nodi identici" (mirrors false) and "Nodi identici e simmetrici" (mirrors true).
void PairInTurn(const ComparedJoints &j, bool mirrors, Verdict &v);
// "Nodi identici e ruotati".
void PairTurned(const ComparedJoints &j, Verdict &v);
// "Nodi qualsiasi".
void PairCheapest(const ComparedJoints &j, Verdict &v);

} // namespace vorna
