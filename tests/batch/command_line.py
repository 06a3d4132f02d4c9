#!/usr/bin/env python3
# SPDX-FileCopyrightText: The Morvane developers
"""Runs the batch tool as a person or a program does: command_line.py PROGRAM SAMPLES. The first failure ends it."""

import fcntl
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

PROGRAM, SAMPLES = sys.argv[1], pathlib.Path(sys.argv[2])
AOBA, TANAKA, HOKUREI = (SAMPLES / f"{name}.json" for name in ("aoba_kensetsu", "tanaka_komuten", "hokurei_doboku"))


def run(*arguments, status=0, program=PROGRAM, **options):
    """Runs the tool, tests its status and gives its output and error texts."""
    done = subprocess.run([program, *map(str, arguments)], stdin=subprocess.DEVNULL, text=True, encoding="utf-8",
                          timeout=120, **({"stdout": subprocess.PIPE, "stderr": subprocess.PIPE} | options))
    expect(done.returncode == status, f"{arguments}: status {done.returncode} instead of {status}: {done.stderr}")
    expect(status == 0 or done.stderr or "ten" in arguments or "check" in arguments, f"{arguments}: no reason given")
    return done.stdout, done.stderr


def expect(condition, message):
    if not condition:
        sys.exit(f"FAILED {message}")


def expect_in(part, text, what):
    expect(part in text, f"{what}: no {part!r} in {text!r}")


def scored(folder, *options, **how):
    """The JSON of a score."""
    return json.loads(run("score", folder, "--format", "json", *options, **how)[0])


def numbers(folder, *options, **how):
    """The company numbers of a score."""
    return [company["管理No"] for company in scored(folder, *options, **how)["companies"]]


def contents(folder):
    return {path: path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def make_folders(top):
    for edition, firms in (("13", 4), ("01", 1)):
        for mode in ("multi", "single"):
            folder = top / f"{edition}-{mode}"
            run("init", folder, "--edition", edition, "--mode", mode, "--sample")
            expect((folder / "Jgmas.dat").exists() == (mode == "multi"), f"{folder}: register")
            expect(len(numbers(folder)) == (firms if mode == "multi" else 1), f"{folder}: samples")
            before = contents(folder)
            expect_in(str(folder), run("init", folder, status=2)[1], "init of a folder that is one")
            expect(before == contents(folder), "init twice")
            expect(run("check", folder)[0] == "", f"{folder}: findings")
    empty = top / "empty"
    run("init", empty)
    expect(numbers(empty) == [], "a new folder holds no company")
    expect(json.loads((empty / "install_info.json").read_text(encoding="utf-8"))["地域CD"] == "13", "default edition")
    run("init", AOBA, status=2)
    expect_in("空", run("init", "", status=2)[1], "init without a name")
    # A folder that lost its settings is never filled with blank stores again.
    lost = top / "lost"
    shutil.copytree(top / "13-multi", lost)
    (lost / "install_info.json").unlink()
    before = contents(lost)
    for command in (("init", lost), ("score", lost)):
        expect_in("init --repair", run(*command, status=2)[1], "the way to repair")
    expect(before == contents(lost), "init changed a file")
    expect_in("install_info.json", run("init", lost, "--repair")[0], "what was made")
    expect(numbers(lost) == numbers(top / "13-multi"), "the companies are there again")
    expect_in("ありません", run("init", lost, "--repair")[0], "nothing is lost")
    (lost / "data").chmod(0)
    if os.geteuid() != 0:
        expect_in("許可", run("score", lost, status=1)[1], "a data folder that may not be read")
    (lost / "data").chmod(0o700)
    expect(oct((top / "13-multi" / "data").stat().st_mode & 0o777) == "0o700", "the data folder is the owner's")


def init_at_once(top):
    """Of several that make one folder at the same time one does, all of it, and the others are refused."""
    for turn in range(4):
        folder = top / f"at-once-{turn}"
        started = [(edition, subprocess.Popen([PROGRAM, "init", folder, "--edition", edition, "--sample"],
                                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE))
                   for edition in ("13", "01", "13", "01")]
        ends = [(program.communicate(timeout=120), edition, program.returncode) for edition, program in started]
        expect(sorted(status for _, _, status in ends) == [0, 2, 2, 2], f"init at once: {ends}")
        made = next(edition for _, edition, status in ends if status == 0)
        settings = json.loads((folder / "install_info.json").read_text(encoding="utf-8"))
        expect(settings["地域CD"] == made, "the edition of the one that ended well")
        expect(len(numbers(folder)) == (4 if made == "13" else 1), "the samples of one edition")
        expect(run("check", folder)[0] == "", "findings after init at once")


def failed_init(top):
    """One that fails leaves nothing that would stop the next one."""
    delivered, folder = top / "delivered", top / "failed"
    delivered.mkdir()
    program = delivered / "morvane-batch"
    shutil.copy(PROGRAM, program)
    shutil.copytree(pathlib.Path(PROGRAM).parent / "templates", delivered / "templates")
    for template in (delivered / "templates").iterdir():
        expect(template.stat().st_mode & 0o444 == 0o444, f"{template}: every user's start reads it")
    (delivered / "templates" / "morv_13.dat").unlink()
    run("init", folder, status=1, program=program)
    run("init", folder)


def import_cases(top):
    folder = top / "empty"
    broken = top / "broken.json"
    broken.write_text(AOBA.read_text(encoding="utf-8").replace('"管理No": 1', '"管理No": 99, "年商": 5'), encoding="utf-8")
    out, err = run("import", folder, AOBA, broken, TANAKA, status=1)
    expect_in("青葉見本建設株式会社", out, "import")
    expect_in(f"「{broken}」 Jigyo_mas.年商", err, "import of a broken case")
    expect(len(err.splitlines()) == 1 and numbers(folder) == [1, 2], "the others are imported")
    expect_in("置き換え", run("import", folder, AOBA)[0], "import again")
    expect_in("Tiiki_CD", run("import", folder, HOKUREI, status=1)[1], "another edition")
    expect_in("none.json", run("import", folder, top / "none.json", status=2)[1], "no such case")
    run("import", top / "13-single", AOBA, TANAKA, status=2)
    run("import", top / "13-single", TANAKA)
    expect(numbers(top / "13-single") == [2], "single mode")


def score(top):
    folder = top / "13-multi"
    expect(numbers(folder) == [1, 2, 4, 5], "all companies")
    expect(numbers(folder, "--company", 5, "--company", 1, "--jobs", 2) == [5, 1], "named companies")
    root = scored(folder, "--company", 1, "--company", 77, status=1)
    expect([company["管理No"] for company in root["companies"]] == [1], "beside an unknown company")
    expect([error["管理No"] for error in root["errors"]] == [77], "the unknown company")
    company = scored(folder, "--company", 4, "--period", 20)["companies"][0]
    expect((company["決算期"], company["Simyu_Kubun"], company["scenario"]) == (20, 2, "genjo"), "an earlier period")
    expect_in("--format json", run("score", folder, "--with", "twelve", status=2)[1], "figures without a place")
    expect_in("第19期", run("score", folder, "--company", 4, "--period", 19, status=1)[1], "no such period")
    expect_in("保存値3", run("score", folder, "--company", 1, "--scenario", 3, status=1)[1], "an empty slot")
    improved = scored(folder, "--company", 5, "--scenario", "kaizen")["companies"][0]
    expect(improved["scenario"] == "kaizen", "the working scenario")

    expect(len(run("score", folder, "--format", "csv")[0].splitlines()) == 1 + 4 * 34, "lines of CSV")
    expect_in("青葉見本建設株式会社", run("score", folder)[0], "table")
    with open("/dev/full", "w", encoding="utf-8") as full:
        run("score", folder, status=1, stdout=full)


def decimal_numbers(top):
    """A number is decimal, whatever zeros it begins with; what is none is refused in Japanese."""
    folder = top / "13-multi"
    expect(numbers(folder, "--company", "000005", "--period", "028", "--jobs", "01") == [5], "leading zeros")
    expect(run("export", folder, "--company", "000005") == run("export", folder, "--company", 5), "export")
    for arguments in (("score", "--company", ""), ("score", "--company", "0x5"), ("score", "--company", " 5"),
                      ("score", "--company", "5 "), ("score", "--company", 2**31), ("score", "--period", "1e1"),
                      ("score", "--period", 32768), ("score", "--jobs", ""), ("export", "--company", ""),
                      ("csv", top / "csv", "--company", "1.0"), ("score", "--company", "\x1b[31m\n" + "9" * 1000)):
        err = run(arguments[0], folder, *arguments[1:], status=2)[1]
        expect_in("指定できません", err, f"{arguments}")
        expect("\x1b" not in err and len(err) < 500, f"{arguments}: echoed {err!r}")


def outputs(top):
    """An output goes to where it was pointed: only a file of one's own is replaced."""
    folder, place = top / "13-multi", top / "outputs"
    place.mkdir()
    text = run("export", folder, "--company", 5)[0].encode()
    export = ("export", folder, "--company", 5, "-o")
    os.mkfifo(place / "pipe")
    os.symlink("file", place / "link")
    for name in ("pipe", "link"):
        with subprocess.Popen(["cat", place / name if name == "pipe" else "/dev/null"], stdout=subprocess.PIPE) as reader:
            run(*export, place / name)
            expect(name == "link" or reader.stdout.read() == text, f"through {name}")
    expect((place / "pipe").is_fifo() and (place / "link").is_symlink(), "pipe and link stay")
    expect((place / "file").read_bytes() == text, "behind the link")
    for command in (f"export '{folder}' --company 5", f"report '{folder}' --company 5"):
        shell = f"'{PROGRAM}' {command} -o >(wc -c >'{place}/count') && '{PROGRAM}' {command} -o /dev/null"
        expect(subprocess.run(["bash", "-c", shell], check=False).returncode == 0, shell)
    expect(pathlib.Path("/dev/null").is_char_device(), "the device stays")
    (place / "file").chmod(0o640)
    run(*export, place / "file")
    expect((place / "file").stat().st_mode & 0o777 == 0o640, "the mode stays")
    (place / "file").write_text("closed")
    (place / "file").chmod(0o444)
    expect_in("許可されていません", run(*export, place / "link", status=1)[1], "a file closed to all")
    expect((place / "file").read_text() == "closed", "and untouched")
    expect_in("空き容量", run(*export, "/dev/full", status=1)[1], "a full device")
    expect_in("フォルダ", run(*export, place / "none" / "file", status=1)[1], "no such folder")
    expect(sorted(path.name for path in place.iterdir()) == ["count", "file", "link", "pipe"], "nothing left beside")
    own_places(folder, place)


def own_places(folder, place):
    """No output takes the place of a store or of another file of an installation."""
    stores = contents(folder)
    store = folder / "data" / "000005.dat"
    os.symlink(store, place / "store.pdf")
    os.symlink(folder, place / "inst")
    os.link(folder / "data" / "000001.dat", place / "second.json")
    shutil.copy(store, place / "copy.pdf")
    copy = (place / "copy.pdf").read_bytes()
    for target in (store, folder / "Jgmas.dat", folder / "install_info.json", folder / "new.pdf",
                   folder / "data" / "000099.dat", place / "store.pdf", place / "inst" / "new.json",
                   place / "inst" / "data" / ".." / "x.pdf", place / "second.json", place / "copy.pdf"):
        for command in ("export", "report"):
            status = 2 if command == "report" and target.suffix != ".pdf" and not target.exists() else 1
            expect_in("Morvaneのデータ", run(command, folder, "--company", 5, "-o", target, status=status)[1], f"{target}")
    for target in (folder, folder / "data", folder / "data" / "csv", place / "inst"):
        expect_in("Morvaneのデータ", run("csv", folder, target, status=2)[1], f"csv {target}")
    for command in (("export", folder, "--company", 5, "-o", ""), ("report", folder, "-o", ""), ("csv", folder, "")):
        expect_in("名前が空", run(*command, status=2)[1], f"{command}")
    for target in (place / "none" / "deep", "/dev/folder", "/proc/folder", place / "file" / "x"):
        for command in (("report", folder, "--company", 5, "-o", target), ("csv", folder, target)):
            expect_in("作成できません", run(*command, status=2)[1], f"{command}")
            expect(not pathlib.Path(target).exists() and not (place / "none").exists(), f"{target} made")
    run("report", folder, "--company", 5, "-o", f"{place / 'reports'}/")
    expect([path.name for path in (place / "reports").iterdir()] == ["000005.pdf"], "the last level is made")
    expect(stores == contents(folder), "a store was written")
    expect((place / "copy.pdf").read_bytes() == copy, "a copy of a store was written")


def foreign_names(top):
    """A folder whose name is no UTF-8: what is written stays JSON."""
    folder = os.fsencode(top) + b"/\xff\x1b[31m"
    os.rename(top / "damaged", folder)
    done = subprocess.run([PROGRAM, "score", folder, "--format", "json"], capture_output=True, check=False)
    expect(done.returncode == 1 and len(json.loads(done.stdout.decode())["errors"]) == 2, f"JSON {done.stdout}")
    expect(b"\xff" not in done.stderr and b"\x1b" not in done.stderr, f"echoed {done.stderr}")
    shutil.rmtree(folder)


def export_and_csv(top):
    folder, case = top / "13-multi", top / "case.json"
    run("export", folder, "--company", 5, "-o", case)
    text = case.read_text(encoding="utf-8")
    expect(run("export", folder, "--company", 5)[0] == text, "export to a file and to the output")
    run("import", top / "empty", case)
    expect(run("export", top / "empty", "--company", 5)[0] == text, "export of what was imported")
    run("export", folder, "--company", 77, status=1)

    out = top / "csv"
    run("csv", folder, out, "--company", 1)
    expect(sorted(path.stem for path in out.iterdir()) == ["Jigyo_mas", "Kandaka_Gj", "Ks_Ki", "Ks_Zaihyo", "W_Yoso"], "CSV")
    for path in out.iterdir():
        lines = path.read_text(encoding="utf-8").splitlines()
        expect(len({line.count(",") for line in lines}) == 1, f"{path.name}: as many fields in every line")
    expect((out / "Ks_Ki.csv").read_text(encoding="utf-8").split() == ["決算期", "33", "34", "35"], "periods")
    run("csv", folder, AOBA, status=2)


def ten(_):
    """The tables themselves are compared elsewhere; here is what a person types and reads."""
    for arguments, first, rest in ((("X1", 10000), "評点 528  行 40", "11×"), (("X1", 10000, "--law", 1), "評点 519  行 40", "11×"),
                                   (("X1", "0100000000"), "評点 2309  行 0", "100000000 以上"), (("X2_1", 0), "評点 361  行 46", ""),
                                   (("Z1", 39), "評点 878  行 24", "技術職員数値"), (("Z2", 0), "評点 241  行 41", "")):
        out = run("ten", *arguments)[0].splitlines()
        expect(out[0].startswith(first) and len(out) == 2, f"ten {arguments}: {out}")
        expect_in(rest, out[1], f"ten {arguments}")
    expect(run("ten", "X1", "--", "-1")[0].startswith("評点 0"), "a negative amount")
    expect_in("桁あふれ", run("ten", "X1", 28633116, status=1)[1], "overflow of the table")
    for arguments, status in ((("X1", 2**31), 1), (("X1", ""), 2), (("X3", 5), 2), (("X1", "多"), 2), (("X1", 5, "--law", 5), 2)):
        run("ten", *arguments, status=status)


def check(top):
    folder = top / "damaged"
    shutil.copytree(top / "13-multi", folder)
    store = folder / "data" / "000002.dat"
    data = bytearray(store.read_bytes())
    data[len(data) // 2] ^= 1
    store.write_bytes(data)
    (folder / "data" / "000001.dat").unlink()
    out = run("check", folder, status=1)[0]
    expect(sorted(line.split("：")[0] for line in out.splitlines()) == ["data/000001.dat", "data/000002.dat"], f"findings {out}")
    store.write_bytes(data[:len(data) // 2])
    out, err = run("score", folder, "--format", "json", status=1)
    found = json.loads(out)
    expect((len(found["companies"]), len(found["errors"]), len(err.splitlines())) == (2, 2, 2), "two companies fail")


def usage(top):
    commands = ("init", "import", "score", "export", "csv", "ten", "check")
    for command in commands:
        expect_in(f"例: morvane-batch {command} ", run(command, "--help")[0], f"{command} --help")
        expect_in(command, run("--help")[0], "--help")
        run(command, status=2)
    folder, new = top / "13-multi", top / "new"
    for arguments in ((), ("frobnicate",), ("score", folder, "--format", "xml"), ("score", folder, "--scenario", "4"),
                      ("score", folder, "--jobs", "0"), ("score", folder, "--nothing"), ("init", new, "--edition", "47"),
                      ("init", new, "--mode", "many")):
        run(*arguments, status=2)
    expect(not (top / "new").exists(), "bad arguments make no folder")
    for arguments in (("import", "DIR", AOBA), ("score", "DIR"), ("export", "DIR", "--company", 1),
                      ("csv", "DIR", top / "out"), ("check", "DIR")):
        for missing in (top / "nowhere", SAMPLES):
            err = run(*(missing if argument == "DIR" else argument for argument in arguments), status=2)[1]
            expect_in(str(missing), err, f"{arguments[0]} of no such folder")


def locked(top):
    folder = top / "13-multi"
    with open(folder / "morvane.lock", "a", encoding="utf-8") as lock:
        fcntl.flock(lock, fcntl.LOCK_EX)
        expect_in("使用中", run("import", folder, AOBA, status=2)[1], "import beside the desktop program")
        expect(numbers(folder) == [1, 2, 4, 5], "score beside the desktop program")
        run("check", folder)
    run("import", folder, AOBA)


def read_only(top):
    """A folder that the user must not write, as another user where this one may write anywhere."""
    folder, program = top / "13-multi", top / "bin" / "morvane-batch"
    program.parent.mkdir()
    shutil.copy(PROGRAM, program)
    case = shutil.copy(AOBA, top)
    expected = numbers(folder)
    for path in [folder, *folder.rglob("*")]:
        path.chmod(0o555 if path.is_dir() else 0o444)
    top.chmod(0o755)
    options = {"program": program} | ({"user": 65534, "group": 65534, "extra_groups": []} if os.geteuid() == 0 else {})
    expect(numbers(folder, **options) == expected, "score of a read-only folder")
    expect(run("check", folder, **options)[0] == "", "check of a read-only folder")
    run("import", folder, case, status=1, **options)
    for path in [folder, *folder.rglob("*")]:
        path.chmod(0o755 if path.is_dir() else 0o644)
    expect(numbers(folder) == expected, "after the refusal")


with tempfile.TemporaryDirectory(prefix="morvane-command-") as name:
    for step in (make_folders, init_at_once, failed_init, import_cases, score, export_and_csv, decimal_numbers, outputs,
                 ten, check, foreign_names, usage, locked, read_only):
        step(pathlib.Path(name))
