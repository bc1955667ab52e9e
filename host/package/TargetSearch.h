// Finds the state at which a feed has a target, by phases at one temperature and pressure after the other.
// Not here: the faster solvers of the equation of state (CaloricFlash, VaporFractionFlash).
#pragma once

#include "package/Model.h"
#include "package/Target.h"

#include <optional>
#include <span>
#include <string>

namespace orvane::package {

/// The temperature or pressure at which one mole of feed has an enthalpy, entropy or volume, or a vapour fraction between
/// 0 and 1. The unknown is followed from a start until two values enclose the target, the bracket shrinks to
/// neighbouring numbers, and where the target lies in a jump between them (a pure compound or an azeotrope boils there, a
/// mixture may do so within rounding) the phases on both sides are taken in the proportion that gives it, with the traces
/// between them in equilibrium. A jump where a second liquid is left out is no answer, but the bracket may hold one beside it.
class TargetSearch {
public:
    /// All arguments are checked, and live longer than this.
    TargetSearch(const Model& model, Variable given, double value, Target target,
                 std::span<const double> feed);

    /// Throws PackageError where no state within the limits of Target.h has the target, where pressure does
    /// not change it, and where phases on both sides of a jump are not in equilibrium with each other: a
    /// second liquid appears there. LiquidLiquidSplit when the answer would be two liquids.
    Equilibrium run();

private:
    struct Point {
        double at = 0;          // the unknown
        double difference = 0;  // value less target, over the scale of the target
        Equilibrium phases;
    };

    Point point(double unknown);
    double value(const Equilibrium& equilibrium) const;
    bool enclose(Point& low, Point& high);
    bool enclosePressure(Point& low, Point& high);
    bool encloseAtMinimum(const Point& left, const Point& middle, const Point& right, Point& low,
                          Point& high);
    std::optional<Equilibrium> complete(const Point& before, const Point& behind, double jump);
    void narrow(Point& low, Point& high);
    void distribute(Equilibrium& result) const;
    Equilibrium finished(Point point) const;
    Equilibrium across(const Point& low, const Point& high);
    [[noreturn]] void fail(const std::string& why) const;

    const Model& model_;
    Variable given_;
    double value_;
    Target target_;
    std::span<const double> feed_;
    double lowestMet_, highestMet_;  // values of the quantity
    int evaluations_ = 0;
};

}  // namespace orvane::package
