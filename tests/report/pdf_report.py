#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Morvane developers
"""The PDF files of the batch tool, read back by another program: pdf_report.py PROGRAM. The first failure ends it."""

import json
import pathlib
import re
import subprocess
import sys
import tempfile
import zlib

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


def expect_no_empty_box(file):
    """No glyph 0, the empty box of a font, is drawn: codes of two bytes are places in the font as embedded."""
    shown = 0
    data = file.read_bytes()
    for start in re.finditer(rb"(?<!end)stream\r?\n", data):
        try:
            content = zlib.decompressobj().decompress(data[start.end():])
        except zlib.error:
            continue
        if not re.search(rb" Tf\b", content):
            continue
        for codes in re.findall(rb"<([0-9a-f]+)>(?:Tj|[^\]<]*[<\]])", content):
            codes = [codes[i:i + 4] for i in range(0, len(codes), 4)]
            expect(b"0000" not in codes, f"{file}: an empty box is drawn")
            shown += len(codes)
    expect(shown > 100, f"{file}: no texts found")


def text_of(file, other_fonts=0):
    fonts = run("pdffonts", file).splitlines()[2:]
    for line in fonts:
        expect(line.split()[-5:-2] == ["yes", "yes", "yes"],
               f"{file}: a font that is not embedded or has no characters: {line}")
    expect(len([line for line in fonts if not re.search(r"IPAex(Gothic|Mincho)", line)]) == other_fonts, f"{file}: {fonts}")
    expect_no_empty_box(file)
    data = file.read_bytes()
    table = int(data.rstrip().split()[-2])
    expect(data[table:table + 5] == b"xref\n" and b"/Lang (ja-JP)" in data and b"/Outlines" in data,
           f"{file}: language, contents or place of the table")
    info = run("pdfinfo", file)
    expect(re.search(r"Pages: +1\n", info) and re.search(r"Page size: +595\.\d* x 841\.\d* pts \(A4\)", info), info)
    return run("pdftotext", "-layout", file, "-")


COLUMNS = "総合評点P 完工高基準 完工高前平均 完工高平均 評点X1 元請完工高基準 元請完工高前平均 元請完工高平均 " \
          "技術者1 技術者2 技術者6 技術者3 技術者4 技術者5 評点Z1 評点Z2 評点Z".split()


def expect_company(what, company, stored, prefix, text):
    """The figures of each work type stand in its line in the order of the columns, 0 left out; the scores of the whole
    at their names."""
    expect(company["事業所名"] in text and f"（第{company['決算期']}期決算）" in text, f"{what}: no heading")
    lines = {line.split()[0]: line.split() for line in text.splitlines() if re.match(r"\d\d\d ", line)}
    expect(list(lines) == CODES, f"{what}: work types {list(lines)}")
    for line, code in enumerate(CODES):
        work = stored.get(str(line), {})
        figures = [f"{work[prefix + name]:,}" for name in COLUMNS if work.get(prefix + name)]
        expect(not stored or lines[code][2:] == figures, f"{what}: {lines[code]} instead of {figures}")
    for work in company["Kandaka_Gj"]:
        expect(not work["総合評点P"] or lines[CODES[work["工種CD"]]][2] == f"{work['総合評点P']:,}", f"{what}: {work}")
    for name, score in (("Ｘ2", company["X2"]["X2"]), ("Ｙ", company["Y"]["Y"]), ("Ｗ", company["W"]["W"])):
        expect(re.search(rf"（{name}） +{score:,}(\s|$)", text), f"{what}: {name} is not {score:,}")


def main(top):
    for edition in ("13", "01"):
        folder = top / edition
        run(PROGRAM, "init", folder, "--edition", edition, "--sample", "--mode", "multi")
        for scenario in ("genjo", "kaizen"):
            out = top / f"out-{edition}-{scenario}"
            run(PROGRAM, "report", folder, "--scenario", scenario, "-o", out)
            companies = json.loads(run(PROGRAM, "score", folder, "--scenario", scenario, "--format", "json"))["companies"]
            expect(len(companies) == len(list(out.iterdir())) > 0, "one file for each company")
            for company in companies:
                text = text_of(out / f"{company['管理No']:06}.pdf")
                expect({"genjo": "（改善前）", "kaizen": "（改善後）"}[scenario] in text, "word of the scenario")
                case = json.loads(run(PROGRAM, "export", folder, "--company", company["管理No"]))
                stored = next(p["Kandaka_Gj"] for p in case["periods"] if p["決算期"] == company["決算期"])
                prefix = {"genjo": "", "kaizen": "改0"}[scenario]
                if not any(prefix + "総合評点P" in work for work in stored.values()):
                    stored = {}  # a scenario that was never started
                expect_company(f"{out.name} {company['管理No']}", company, stored, prefix, text)

    one = top / "one.pdf"
    run(PROGRAM, "report", top / "13", "--company", 4, "--period", 20, "-o", one)
    text = text_of(one)
    expect("労働福祉の状況" in text and "補佐" not in text, "the report of the law year of period 20")
    run(PROGRAM, "report", top / "13", "--company", 4, "--period", 20, "--report", "Rpt_Kekka_2011", "-o", one)
    expect("労働福祉の状況" in text_of(one), "a report by its name")
    run(PROGRAM, "report", top / "13", "--company", 1, "--report", "Rpt_Kekka", "-o", one, status=1)

    case = json.loads(run(PROGRAM, "export", top / "13", "--company", 1))
    for name, other_fonts, notice in (("㈱𠮷野・葛󠄀城\u200b建設", 1, ""), ("青葉\U000f1234建設", 0, "U+F1234")):
        case["Jigyo_mas"]["事業所名"] = name
        (top / "name.json").write_text(json.dumps(case, ensure_ascii=False), encoding="utf-8")
        run(PROGRAM, "import", top / "13", top / "name.json")
        told = subprocess.run([PROGRAM, "report", top / "13", "--company", "1", "-o", one], capture_output=True,
                              text=True, encoding="utf-8").stderr
        expect(notice in told and bool(notice) == bool(told), f"told of {name}: {told}")
        expect(name.replace("\u200b", "") in text_of(one, other_fonts), f"{name} cannot be searched")
        info = run("pdfinfo", one)
        expect(re.search(rf"Title: +結果通知書 {name} 第35期 改善前".replace("\u200b", ""), info) and
               re.search("Author: +見本行政書士事務所", info), info)

    expect("フォルダを指定" in run(PROGRAM, "report", top / "13", "-o", one, status=2), "all into one file")
    expect("使い方" in run(PROGRAM, "report", top / "13", "--report", "Rpt_Nai", "-o", one, status=2), "no such report")
    (top / "file").write_text("")
    expect("フォルダを指定" in run(PROGRAM, "report", top / "13", "-o", top / "file", status=2), "a file for a folder")
    before = one.read_bytes()
    expect("77" in run(PROGRAM, "report", top / "13", "--company", 77, "-o", one, status=1), "no such company")
    expect(one.read_bytes() == before, "what failed leaves the file")
    expect("保存値1" in run(PROGRAM, "report", top / "13", "--company", 2, "--scenario", 1, "-o", one, status=1), "empty slot")
    expect("nai" in run(PROGRAM, "report", top / "13", "--company", 1, "-o", top / "nai" / "a.pdf", status=1), "no such folder")
    expect(not list(top.glob("*.pdf.*")), "drafts stay behind")


with tempfile.TemporaryDirectory() as name:
    main(pathlib.Path(name))
