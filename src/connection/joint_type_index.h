// The pruning behind the catalogue of joint types, beside the grouping rule it speeds up: a
// node's signature, the necessary condition on two signatures, and the index of the heads.
#pragma once

#include "connection/analogy.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace vorna {

// What a node shares with every head it is analogous to, under the method and tolerances in
// force. The numbers agree only within a reach (which chains: a ~ b and b ~ c but not a ~ c), so
// they are compared pairwise with it, never hashed; only the bar count is an exact key.
struct Signature {
    bool finite = true;   // false: a coordinate is not a number, nothing is pruned
    bool complete = true; // every bar has what the method compares
    int compared = 0;     // bars that have it
    double longest = 0;
    // When lengths count, sorted: of the compared vectors, or within a length tolerance the
    // logarithms of the bars' lengths (their ratio is what the tolerance bounds).
    std::vector<double> lengths;
    std::vector<double> heights; // z of the compared vectors, sorted ("simmetrici" keeps z)
    // Of every two compared vectors, sorted (a rotation keeps them): dot products of raw
    // vectors, angles between directions.
    std::vector<double> pairs;
};

// How far the values a node shares with a head it agrees with may lie from the head's.
struct SignatureReach {
    double height = 0; // z of the compared vectors
    double length = 0;
    double pair = 0; // angles or dot products between two compared vectors
    bool logLengths = false;
};

// Signatures under one set of parameters, with the reaches they are compared within worked out
// once.
class SignatureRules {
public:
    explicit SignatureRules(const AnalogyParameters &params);

    Signature Of(const Joint &joint) const;
    // A necessary condition for the node to be analogous to the head: false only when the test
    // could not pass.
    bool MayMatch(const Signature &head, const Signature &node) const;

private:
    AnalogyParameters params_;
    SignatureReach reach_;
};

// Where a node looks for the heads it may join. Each head files itself under one key, a point
// in a grid of cells twice the reach wide, that every node analogous to it comes within the
// reach of (componentwise) from one of its own query points; heads without such a key are
// tried by every node with their bar count.
class HeadIndex {
public:
    explicit HeadIndex(const AnalogyParameters &params);
    ~HeadIndex();
    HeadIndex(const HeadIndex &) = delete;
    HeadIndex &operator=(const HeadIndex &) = delete;

    void Add(std::size_t head, int barCount, const Joint &base);
    // The heads with that bar count that the node may join, in head order.
    const std::vector<std::size_t> &Candidates(int barCount, const Joint &node);

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

} // namespace vorna
