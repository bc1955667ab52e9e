"""Writes CaseTables.h: Unicode's simple case mappings as runs. Usage: python3.14 casetables.py > CaseTables.h"""
import unicodedata

# str.lower() and str.upper() are the full mappings; where those give several characters, the simple ones differ.
SIMPLE_LOWER = {0x130: 0x69}


def runs_of(mapped):
    runs = []  # [first, last, step, distance]
    for code in range(0x110000):
        distance = mapped(code) - code
        if distance == 0:
            continue
        if runs:
            first, last, step, known = runs[-1]
            gap = code - last
            if distance == known and gap in (1, 2) and (first == last or gap == step):
                runs[-1] = [first, code, gap, known]
                continue
        runs.append([code, code, 1, distance])
    return runs


def lower(code):
    text = chr(code).lower()
    return SIMPLE_LOWER.get(code) or (ord(text) if len(text) == 1 else code)


def upper(code):
    # Greek letters with an iota below: the full mapping writes the iota beside the letter, the title-case letter is one.
    for text in chr(code).upper(), chr(code).title():
        if len(text) == 1:
            return ord(text)
    return code


def table(name, runs):
    lines = [f"inline constexpr CaseRun {name}[] = {{"]
    for start in range(0, len(runs), 4):
        lines.append("    " + " ".join("{0x%X, 0x%X, %d, %d}," % tuple(run) for run in runs[start:start + 4]))
    return "\n".join(lines + ["};"])


print(f"""// Unicode {unicodedata.unidata_version}, simple case mappings: every step-th character from first to last moves by distance.
// Written by casetables.py.
#pragma once

namespace COBIA {{

struct CaseRun {{
    char32_t first, last;
    int step, distance;
}};

// clang-format off
{table("lowerCaseRuns", runs_of(lower))}

{table("upperCaseRuns", runs_of(upper))}
// clang-format on

}}  // namespace COBIA""")
