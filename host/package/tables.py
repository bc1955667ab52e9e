"""Turns the tables of data/ into the C++ source of CompoundTable: tables.py DATA_FOLDER OUTPUT."""

import csv
import json
import pathlib
import sys

TEXT = ["id", "name", "formula", "cas"]
NUMBERS = ["molecular_weight", "normal_boiling_point", "critical_temperature", "critical_pressure",
           "critical_volume", "acentric_factor", "heat_of_formation_ideal_gas", "absolute_entropy_ideal_gas"]
HEAT_CAPACITY = ["cp_a0", "cp_a1", "cp_a2", "cp_a3", "cp_a4"]
RANGE = ["cp_tmin", "cp_tmax"]
REMARKS = ["source", "notes"]
FAMILIES = ["general", "alcohol", "acid"]


def rows(path):
    with open(path, encoding="utf-8", newline="") as file:
        for row in csv.DictReader(file, strict=True):
            if None in row or None in row.values():
                raise SystemExit(f"{path}: the row of {row} has not as many fields as the header")
            yield row


def number(text):
    float(text)  # raises where the table holds no number; the literal goes over as the table has it
    return text


def text(value):
    return json.dumps(value, ensure_ascii=False)  # quotes as C++ does


def compound(row, polarity):
    fields = [text(row[c]) for c in TEXT]
    fields += [number(row[c]) for c in NUMBERS]
    fields.append("{" + ", ".join(number(row[c]) for c in HEAT_CAPACITY) + "}")
    fields += [number(row[c]) for c in RANGE]
    fields += [number(polarity[c]) for c in ("dipole_moment", "association")]
    if polarity["surface_family"] not in FAMILIES:
        raise SystemExit(f"polarity.csv: {polarity['surface_family']} of {row['id']} is none of {FAMILIES}")
    fields.append("SurfaceFamily::" + polarity["surface_family"])
    fields += [text(row[c]) for c in REMARKS]
    return "        {" + ", ".join(fields) + "},\n"


def main(data, output):
    compounds = list(rows(data / "compounds.csv"))
    ids = {row["id"] for row in compounds}
    if len(ids) != len(compounds):
        raise SystemExit("compounds.csv: an id stands there twice")
    polarities = {row["id"]: row for row in rows(data / "polarity.csv")}
    if polarities.keys() != ids:
        raise SystemExit(f"polarity.csv: {sorted(polarities.keys() ^ ids)} stand in one table only")
    pairs = list(rows(data / "binary-interaction.csv"))
    for pair in pairs:
        for column in ("compound_1", "compound_2"):
            if pair[column] not in ids:
                raise SystemExit(f"binary-interaction.csv: {pair[column]} is not in compounds.csv")

    source = '// Made by tables.py from data/*.csv.\n#include "package/CompoundTableData.h"\n\n'
    source += "namespace orvane::package {\n\nstd::vector<Compound> compoundRows() {\n    return {\n"
    source += "".join(compound(row, polarities[row["id"]]) for row in compounds)
    source += "    };\n}\n\nstd::vector<Interaction> interactionRows() {\n    return {\n"
    source += "".join(f"        {{{text(p['compound_1'])}, {text(p['compound_2'])}, {number(p['kij'])}}},\n"
                      for p in pairs)
    source += "    };\n}\n\n} // namespace orvane::package\n"
    output.write_text(source, encoding="utf-8", newline="\n")


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
