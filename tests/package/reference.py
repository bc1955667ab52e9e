"""Figures of the Peng-Robinson equation to 40 digits, by other ways than the package goes: reference.py [HEADER].

Textbook formulas in decimal arithmetic, temperature derivatives by differences of 1e-20, phases by successive
substitution until nothing moves, bubble and dew points by the secant method around it. Slow, and with nothing in
common with the package but the table of constants. Writes ReferenceFigures.h, which stands beside it.
"""

import csv
import pathlib
import sys
from decimal import Decimal as D, getcontext

getcontext().prec = 60
HERE = pathlib.Path(__file__).resolve().parent
DATA = HERE.parent.parent / "host" / "package" / "data"
R, T0, P0 = D("8.31446261815324"), D("298.15"), D(101325)
OMEGA_A, OMEGA_B = D("0.457235528921382"), D("0.0777960739038885")
ROOT2 = D(2).sqrt()


def table(name):
    with open(DATA / name, encoding="utf-8", newline="") as file:
        return list(csv.DictReader(file))


COMPOUNDS = {row["id"]: row for row in table("compounds.csv")}
KIJ = {}
for row in table("binary-interaction.csv"):
    KIJ[row["compound_1"], row["compound_2"]] = KIJ[row["compound_2"], row["compound_1"]] = D(row["kij"])


class Mixture:
    def __init__(self, ids):
        self.ids = ids
        rows = [COMPOUNDS[i] for i in ids]
        self.tc = [D(r["critical_temperature"]) for r in rows]
        self.pc = [D(r["critical_pressure"]) for r in rows]
        self.omega = [D(r["acentric_factor"]) for r in rows]
        self.cp = [[D(r[f"cp_a{k}"]) for k in range(5)] for r in rows]
        self.b = [OMEGA_B * R * tc / pc for tc, pc in zip(self.tc, self.pc)]

    def a(self, i, t):
        m = D("0.37464") + D("1.54226") * self.omega[i] - D("0.26992") * self.omega[i] ** 2
        alpha = (1 + m * (1 - (t / self.tc[i]).sqrt())) ** 2
        return OMEGA_A * (R * self.tc[i]) ** 2 / self.pc[i] * alpha

    def a_mixture(self, t, x):
        a = [self.a(i, t) for i in range(len(x))]
        pair = [[(a[i] * a[j]).sqrt() * (1 - KIJ.get((self.ids[i], self.ids[j]), D(0))) for j in range(len(x))]
                for i in range(len(x))]
        rows = [sum(x[j] * pair[i][j] for j in range(len(x))) for i in range(len(x))]
        return sum(x[i] * rows[i] for i in range(len(x))), rows

    def roots(self, A, B):
        """Real roots of Z^3 - (1-B) Z^2 + (A-3B^2-2B) Z - (AB-B^2-B^3), above B: by Newton from both sides."""
        c = [-(1 - B), A - 3 * B * B - 2 * B, -(A * B - B * B - B ** 3)]
        found = []
        for z in (B * D("1.0000001"), 1 + 10 * B + A):
            for _ in range(400):
                f = ((z + c[0]) * z + c[1]) * z + c[2]
                slope = (3 * z + 2 * c[0]) * z + c[1]
                if slope <= 0:  # between the extremes: not a root that is wanted
                    break
                step = f / slope
                z -= step
                if abs(step) < D("1e-55") * abs(z):
                    found.append(z)
                    break
        return sorted(z for z in found if z > B)

    def phase(self, t, p, x, which):
        """lnPhi, H and S with those of the ideal gas, V; which: "vapor", "liquid" or "stable"."""
        a, rows = self.a_mixture(t, x)
        b = sum(xi * bi for xi, bi in zip(x, self.b))
        A, B = a * p / (R * t) ** 2, b * p / (R * t)
        results = []
        for z in self.roots(A, B):
            log = ((z + (1 + ROOT2) * B) / (z + (1 - ROOT2) * B)).ln()
            ln_phi = [self.b[i] / b * (z - 1) - (z - B).ln() -
                      A / (2 * ROOT2 * B) * (2 * rows[i] / a - self.b[i] / b) * log for i in range(len(x))]
            h = t * D("1e-20")
            slope = (self.a_mixture(t + h, x)[0] - self.a_mixture(t - h, x)[0]) / (2 * h)
            enthalpy = R * t * (z - 1) + (t * slope - a) / (2 * ROOT2 * b) * log
            entropy = R * (z - B).ln() + slope / (2 * ROOT2 * b) * log
            for xi, c in zip(x, self.cp):
                enthalpy += xi * R * sum(ck * (t ** (k + 1) - T0 ** (k + 1)) / (k + 1) for k, ck in enumerate(c))
                entropy += xi * R * (c[0] * (t / T0).ln() +
                                     sum(ck * (t ** k - T0 ** k) / k for k, ck in enumerate(c) if k))
                entropy -= xi * R * xi.ln()
            entropy -= R * (p / P0).ln()
            gibbs = sum(xi * f for xi, f in zip(x, ln_phi))
            results.append((ln_phi, enthalpy, entropy, z * R * t / p, gibbs))
        if which == "stable":
            return min(results, key=lambda result: result[4])
        return max(results, key=lambda r: r[3]) if which == "vapor" else min(results, key=lambda r: r[3])

    def wilson(self, t, p):
        return [(pc / p) * (D("5.373") * (1 + w) * (1 - tc / t)).exp()
                for tc, pc, w in zip(self.tc, self.pc, self.omega)]

    def split(self, t, p, z):
        """Vapour fraction and both phases."""
        k = self.wilson(t, p)
        beta = D("0.5")
        for _ in range(20000):
            low, high = D(0), D(1)
            for _ in range(300):
                f = sum(zi * (ki - 1) / (1 + beta * (ki - 1)) for zi, ki in zip(z, k))
                slope = -sum(zi * ((ki - 1) / (1 + beta * (ki - 1))) ** 2 for zi, ki in zip(z, k))
                if f > 0:
                    low = beta
                else:
                    high = beta
                after = beta - f / slope
                if not low < after < high:
                    after = (low + high) / 2
                done = abs(after - beta) < D("1e-50")
                beta = after
                if done:
                    break
            x = [zi / (1 + beta * (ki - 1)) for zi, ki in zip(z, k)]
            y = [ki * xi for xi, ki in zip(x, k)]
            vapor, liquid = self.phase(t, p, y, "vapor"), self.phase(t, p, x, "liquid")
            after = [(l - v).exp() for v, l in zip(vapor[0], liquid[0])]
            change = max(abs((a / b).ln()) for a, b in zip(after, k))
            k = after
            if change < D("1e-35"):
                return beta, y, x, vapor, liquid
        raise SystemExit(f"no convergence at {t} K, {p} Pa: {change}")

    def saturation(self, p, z, dew, start):
        """Temperature of the bubble or dew point at a pressure."""
        def excess(t):
            k = self.wilson(t, p)
            for _ in range(20000):
                other = [zi / ki if dew else zi * ki for zi, ki in zip(z, k)]
                total = sum(other)
                other = [o / total for o in other]
                vapor = self.phase(t, p, z if dew else other, "vapor")
                liquid = self.phase(t, p, other if dew else z, "liquid")
                after = [(l - v).exp() for v, l in zip(vapor[0], liquid[0])]
                change = max(abs((a / b).ln()) for a, b in zip(after, k))
                k = after
                if change < D("1e-35"):
                    break
            return sum(zi / ki if dew else zi * ki for zi, ki in zip(z, k)).ln()
        t0, t1 = D(start), D(start) * D("1.001")
        f0 = excess(t0)
        while abs(t1 - t0) > D("1e-25"):
            f1 = excess(t1)
            t0, t1, f0 = t1, t1 - f1 * (t1 - t0) / (f1 - f0), f1
        return t1


GAS = (["nitrogen", "carbon-dioxide", "methane", "ethane", "propane", "isobutane", "n-butane", "n-pentane", "n-hexane",
        "n-heptane"], ["0.01", "0.02", "0.7", "0.1", "0.06", "0.02", "0.03", "0.02", "0.02", "0.02"])
WET = (["water", "methanol", "hydrogen-sulfide", "methane"], ["0.4", "0.2", "0.15", "0.25"])
LIGHT = (["hydrogen", "ethylene", "propane"], ["0.3", "0.3", "0.4"])
ONE_PHASE = [(GAS, "400", "3e6", "vapor"), (GAS, "120", "3e6", "liquid"), (GAS, "300", "3e7", "stable"),
             (GAS, "250", "1e3", "vapor"), (WET, "420", "2e5", "vapor"), (WET, "290", "2e7", "liquid"),
             (LIGHT, "300", "1e6", "vapor"), (LIGHT, "150", "5e6", "liquid"), (LIGHT, "600", "1e8", "stable")]
TWO_PHASES = [(GAS, "250", "3e6"), (GAS, "290", "9e6"), (GAS, "200", "1e5"), (WET, "380", "3e6"), (LIGHT, "220", "2e6")]
SATURATIONS = [(GAS, "3e6", True, "340"), (GAS, "1e5", True, "300"), (LIGHT, "2e6", True, "290"),
               (GAS, "1e6", False, "135")]


def figure(value):
    return f"{value:.20e}"


def listed(values):
    return "{" + ", ".join(figure(v) for v in values) + "}"


def feed(fluid):
    return "{" + ", ".join(f'"{i}"' for i in fluid[0]) + "},\n     {" + ", ".join(fluid[1]) + "}"


def main(header):
    text = ("// Made by reference.py: see there for how. Per row: compounds, mole fractions, temperature [K], pressure [Pa],\n"
            "// then the figures, in J/mol, J/mol/K and m3/mol.\n#pragma once\n\n"
            "#include <string_view>\n#include <vector>\n\nnamespace orvane::package::test {\n\n"
            "struct ReferencePhase {\n    std::vector<std::string_view> ids;\n    std::vector<double> x;\n"
            "    double temperature, pressure;\n    char root;  // v, l or s\n    double enthalpy, entropy, volume;\n"
            "    std::vector<double> lnPhi;\n};\n\n"
            "struct ReferenceSplit {\n    std::vector<std::string_view> ids;\n    std::vector<double> feed;\n"
            "    double temperature, pressure, vaporFraction, enthalpy, entropy, volume;\n    std::vector<double> y, x;\n};\n\n"
            "struct ReferenceSaturation {\n    std::vector<std::string_view> ids;\n    std::vector<double> feed;\n"
            "    double pressure, vaporFraction, temperature;\n};\n\n")
    text += "inline const ReferencePhase referencePhases[] = {\n"
    for fluid, t, p, which in ONE_PHASE:
        ln_phi, h, s, v, _ = Mixture(fluid[0]).phase(D(t), D(p), [D(x) for x in fluid[1]], which)
        text += f"    {{{feed(fluid)},\n     {t}, {p}, '{which[0]}', {figure(h)}, {figure(s)}, {figure(v)},\n     {listed(ln_phi)}}},\n"
    text += "};\n\ninline const ReferenceSplit referenceSplits[] = {\n"
    for fluid, t, p in TWO_PHASES:
        beta, y, x, vapor, liquid = Mixture(fluid[0]).split(D(t), D(p), [D(z) for z in fluid[1]])
        total = [beta * v + (1 - beta) * l for v, l in zip(vapor[1:4], liquid[1:4])]
        text += (f"    {{{feed(fluid)},\n     {t}, {p}, {figure(beta)},\n     " + ", ".join(map(figure, total)) +
                 f",\n     {listed(y)},\n     {listed(x)}}},\n")
    text += "};\n\ninline const ReferenceSaturation referenceSaturations[] = {\n"
    for fluid, p, dew, start in SATURATIONS:
        t = Mixture(fluid[0]).saturation(D(p), [D(z) for z in fluid[1]], dew, start)
        text += f"    {{{feed(fluid)},\n     {p}, {int(dew)}, {figure(t)}}},\n"
    text += "};\n\n}  // namespace orvane::package::test\n"
    header.write_text(text, encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]) if len(sys.argv) > 1 else HERE / "ReferenceFigures.h")
