#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Morvane developers
"""The PDF files of the batch tool, read back by another program: pdf_report.py PROGRAM. The first failure ends it."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile

PROGRAM = sys.argv[1]
CODES = "010 011 020 030 040 050 051 060 070 080 090 100 110 111 120 130 140 150 160 170 180 190 200 210 220 230 240 " \
        "250 260 270 280 290".split()


def expect(condition, message):
    if not condition:
        sys.exit(f"FAILED {message}")


def run(*arguments, status=0):
    done = subprocess.run(list(map(str, arguments)), capture_output=True, text=True, encoding="utf-8", timeout=120)
    expect(done.returncode == status, f"{arguments}: status {done.returncode} instead of {status}: {done.stderr}")
    return done.stdout if status == 0 else done.stderr


def text_of(file):
    for line in run("pdffonts", file).splitlines()[2:]:
        expect(re.search(r"IPAex(Gothic|Mincho)", line) and line.split()[-5:-2] == ["yes", "yes", "yes"],
               f"{file}: a font that is not embedded or has no characters: {line}")
    info = run("pdfinfo", file)
    expect(re.search(r"Pages: +1\n", info) and re.search(r"Page size: +595\.\d* x 841\.\d* pts \(A4\)", info), info)
    return run("pdftotext", "-layout", file, "-")


def expect_company(folder, company, text):
    """Each score of a company stands in the line of its work type, those of the whole at their names."""
    what = f"{folder.name} {company['管理No']}"
    expect(company["事業所名"] in text and f"（第{company['決算期']}期決算）" in text, f"{what}: no heading")
    lines = {line.split()[0]: line.split() for line in text.splitlines() if re.match(r"\d\d\d ", line)}
    expect(list(lines) == CODES, f"{what}: work types {list(lines)}")
    for work in company["Kandaka_Gj"]:
        if work["総合評点P"] is None:
            continue
        printed = lines[CODES[work["工種CD"]]]
        expect(printed[2] == f"{work['総合評点P']:,}" and printed[-1] == f"{work['評点Z']:,}"
               and all(f"{work[name]:,}" in printed for name in ("完工高平均", "元請完工高平均", "評点X1") if work[name]),
               f"{what}: {printed}")
    for name, score in (("Ｘ2", company["X2"]["X2"]), ("Ｙ", company["Y"]["Y"]), ("Ｗ", company["W"]["W"])):
        expect(re.search(rf"（{name}） +{score:,}(\s|$)", text), f"{what}: {name} is not {score:,}")


def main(top):
    for edition in ("13", "01"):
        folder = top / edition
        run(PROGRAM, "init", folder, "--edition", edition, "--sample")
        for scenario in ("genjo", "kaizen"):
            out = top / f"out-{edition}-{scenario}"
            run(PROGRAM, "report", folder, "--scenario", scenario, "-o", out)
            companies = json.loads(run(PROGRAM, "score", folder, "--scenario", scenario, "--format", "json"))["companies"]
            expect(len(companies) == len(list(out.iterdir())) > 0, "one file for each company")
            for company in companies:
                text = text_of(out / f"{company['管理No']:06}.pdf")
                expect({"genjo": "（改善前）", "kaizen": "（改善後）"}[scenario] in text, "word of the scenario")
                expect_company(folder, company, text)

    one = top / "one.pdf"
    run(PROGRAM, "report", top / "13", "--company", 4, "--period", 20, "-o", one)
    text = text_of(one)
    expect("労働福祉の状況" in text and "補佐" not in text, "the report of the law year of period 20")
    run(PROGRAM, "report", top / "13", "--company", 1, "--report", "Rpt_Kekka", "-o", one)
    expect("労働福祉の状況" in text_of(one), "a report by its name")

    expect("フォルダを指定" in run(PROGRAM, "report", top / "13", "-o", one, status=2), "all into one file")
    expect("使い方" in run(PROGRAM, "report", top / "13", "--report", "Rpt_Nai", "-o", one, status=2), "no such report")
    (top / "file").write_text("")
    expect("作成できません" in run(PROGRAM, "report", top / "13", "-o", top / "file", status=2), "a file for a folder")
    before = one.read_bytes()
    expect("77" in run(PROGRAM, "report", top / "13", "--company", 77, "-o", one, status=1), "no such company")
    expect(one.read_bytes() == before, "what failed leaves the file")
    expect("保存値1" in run(PROGRAM, "report", top / "13", "--company", 2, "--scenario", 1, "-o", one, status=1), "empty slot")
    expect("nai" in run(PROGRAM, "report", top / "13", "--company", 1, "-o", top / "nai" / "a.pdf", status=1), "no such folder")
    expect(not list(top.glob("*.pdf.*")), "drafts stay behind")


with tempfile.TemporaryDirectory() as name:
    main(pathlib.Path(name))
