#!/usr/bin/env python3
"""Holds what the programs say of themselves (--help) against manual pages and completions.

    check_manual.py PAGES             the manual pages are well formed (mandoc, groff)
    check_manual.py MENU              desktop file, metainfo and icons are valid
    check_manual.py PACKAGE           the Debian package asks for every library of the build, and has this version
    check_manual.py HELP PROGRAM...   every subcommand and flag of each program is in its manual page, and is
                                      offered by its completions where the shell can be asked

Every tool is in scripts/packages; one that is missing is a failure.
"""

import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
SHARE = ROOT / "share"
PAGES = sorted(SHARE.glob("man/*.[1-9]")) + [ROOT / "lib/npif-reader/npif-reader.3"]
failures = []


def run(*command, **more):
    return subprocess.run(command, capture_output=True, text=True, timeout=60, check=False, **more)


def expect(holds, message):
    if not holds:
        failures.append(message)


def check_pages():
    expect(len(PAGES) == 4, f"expected four manual pages, found {PAGES}")
    for page in PAGES:
        lint = run("mandoc", "-T", "lint", "-W", "style", str(page)).stdout.splitlines()
        # Pages that are not installed where this runs say nothing about this one.
        lint = [line for line in lint if "referenced manual not found" not in line]
        expect(not lint, "\n".join(lint))
        groff = run("groff", "-ww", "-mdoc", "-z", "-Tutf8", str(page))
        expect(groff.returncode == 0 and not groff.stderr, groff.stderr)
        for name, section in re.findall(r"^\.Xr (\S+) (\d)", page.read_text(encoding="utf-8"), re.M):
            ours = [other.name for other in PAGES]
            expect(not re.match("special-pages|npif", name) or f"{name}.{section}" in ours,
                   f"{page.name} refers to {name}({section}), which there is not")


def check_menu():
    desktop = SHARE / "desktop/com.norvalen.special_pages.desktop"
    ran = run("desktop-file-validate", str(desktop))
    expect(ran.returncode == 0 and not ran.stdout, ran.stdout + ran.stderr)
    metainfo = SHARE / "desktop/com.norvalen.special_pages.metainfo.xml"
    ran = run("appstreamcli", "validate", "--no-net", "--pedantic", str(metainfo))
    expect(ran.returncode == 0, ran.stdout + ran.stderr)
    tree = xml.etree.ElementTree.parse(metainfo)
    version = re.search(r"project\(SpecialPages VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
    expect(tree.find("releases/release").get("version") == version, f"the newest release is not {version}")
    expect(tree.findtext("launchable") == desktop.name, "the metainfo launches another desktop file")
    icon = re.search(r"^Icon=(.*)$", desktop.read_text(encoding="utf-8"), re.M)[1]
    expect(tree.findtext("icon") == icon, "desktop file and metainfo name two icons")
    for name in (icon, icon + "-symbolic"):
        root = xml.etree.ElementTree.parse(SHARE / f"icons/{name}.svg").getroot()
        expect(root.tag.endswith("}svg") and root.get("viewBox") is not None, f"{name}: no scalable picture")


def check_package():
    control = (ROOT / "debian/control").read_text(encoding="utf-8").split("\nPackage:")[0]
    packages = (ROOT / "scripts/packages").read_text(encoding="utf-8").replace("\\\n", " ")
    groups = dict(re.findall(r'^PACKAGES_(\w+)="(.*)"$', packages, re.M))
    libraries = groups["LIBRARIES"].split() + groups.get("WINDOW", "").split()
    for package in libraries:
        expect(re.search(rf"^ {re.escape(package)}\b", control, re.M) or not re.search("-dev$|-dev:", package),
               f"debian/control, Build-Depends: {package} is missing")
    expect(len(libraries) > 5, "scripts/packages names no libraries")
    version = re.search(r"project\(SpecialPages VERSION (\S+)", (ROOT / "CMakeLists.txt").read_text())[1]
    newest = (ROOT / "debian/changelog").read_text(encoding="utf-8").splitlines()[0]
    expect(f"({version}" in newest, f"debian/changelog does not begin with {version}")


def help_of(program, *arguments):
    ran = run(program, *arguments, "--help", env={"PATH": "/usr/bin:/bin", "QT_QPA_PLATFORM": "offscreen"})
    expect(ran.returncode == 0, f"{program} {' '.join(arguments)} --help: {ran.stderr}")
    return ran.stdout


def flags_in(text):
    """The flags at the head of a line of options: "-h,--help  Print..." has two."""
    heads = re.findall(r"^  (-[-\w]+(?:,-[-\w]+)*)", text, re.M)
    return {flag for head in heads for flag in head.split(",")}


def subcommands_in(text):
    parts = text.split("Subcommands:\n")
    return re.findall(r"^  ([a-z][-\w]*)", parts[1], re.M) if len(parts) > 1 else []


def sections_of(page):
    """The words of each sub-section of COMMANDS, and under "" those of all else."""
    name, sections = "", {"": []}
    for line in page.read_text(encoding="utf-8").splitlines():
        if line.startswith(".Ss "):
            name = line[4:].strip()
            sections[name] = []
        elif line.startswith(".Sh "):
            name = ""
        sections[name].append(line)
    return {name: "\n".join(lines) for name, lines in sections.items()}


def is_listed(flag, section):
    """Whether a list has an item for it: ".It Fl -ppd Ar FILE", ".It Fl h , -help"."""
    items = re.findall(r"^\.It Fl (.*)$", section, re.M)
    return any(flag[1:] in item.split() for item in items)


def check_page(name, command, flags, sections):
    where = f"{name}.1" + (f", section {command}" if command else "")
    expect(command in sections, f"{where}: there is no such section")
    for flag in sorted(flags):
        if not (command and flag in ("-h", "--help")): # told once, for all
            expect(is_listed(flag, sections.get(command, "")), f"{where}: {flag} is not in it")


BASH = r"""
source "$1"
shift
COMP_WORDS=("$@" "")
COMP_WORDS[$#]=$LAST
COMP_CWORD=$#
"$FUNCTION" 2>/dev/null
printf '%s\n' "${COMPREPLY[@]}"
"""


def offered_by_bash(name, words, last):
    function = "_" + name.replace("-", "_")
    ran = run("bash", "-c", BASH, "bash", str(SHARE / f"completions/{name}.bash"), name, *words,
              env={"PATH": "/usr/bin:/bin", "LAST": last, "FUNCTION": function})
    expect(not ran.stderr, f"{name}.bash: {ran.stderr}")
    return set(ran.stdout.split())


def offered_by_fish(name, words, last):
    line = " ".join([name, *words, last])
    ran = run("fish", "--no-config", "-c", f'source {SHARE}/completions/{name}.fish; complete -C "{line}"',
              env={"PATH": "/usr/bin:/bin", "HOME": "/nonexistent", "TERM": "dumb"})
    return {row.split("\t")[0] for row in ran.stdout.splitlines()}


def zsh_part(name, command):
    """zsh completes in a terminal only: its part for the command is read."""
    text = (SHARE / f"completions/_{name}").read_text(encoding="utf-8")
    general = text.split("commands=(")[0].replace("{-h,--help}", "'-h --help'").replace("{-v,--verbose}", "'-v --verbose'")
    lists = dict(re.findall(r"^    (ppd|mark|lang)=\((.*)\)$", text, re.M))
    if not command:
        return text.replace("{-h,--help}", "'-h --help'").replace("{-v,--verbose}", "'-v --verbose'")
    part = re.search(rf"^ {{16}}{command}\)\n(.*?)^ {{20}};;", text, re.M | re.S)
    part = part[1] if part else ""
    for word, value in lists.items():
        part = part.replace(f"${word}", value)
    return general + part


def check_completions(name, command, flags):
    words = [command] if command else []
    for shell, offered in (("bash", offered_by_bash), ("fish", offered_by_fish)):
        # Without a second hyphen some shells offer long flags only.
        found = offered(name, words, "-") | offered(name, words, "--")
        for flag in sorted(flags - found):
            expect(False, f"{shell}: {flag} is not offered behind {' '.join([name, *words])}")
    part = zsh_part(name, command)
    for flag in sorted(flags):
        expect(re.search(rf"(?<![-\w]){re.escape(flag)}(?![-\w])", part),
               f"zsh: {flag} is not offered behind {' '.join([name, *words])}")


def check_help(program):
    name = pathlib.Path(program).name
    sections = sections_of(SHARE / f"man/{name}.1")
    text = help_of(program)
    commands = subcommands_in(text)
    expect(flags_in(text), f"{program} --help lists no flags")
    syntax = run("zsh", "-n", str(SHARE / f"completions/_{name}"))
    expect(syntax.returncode == 0 and not syntax.stderr, syntax.stderr)
    check_page(name, "", flags_in(text), sections)
    check_completions(name, "", flags_in(text))
    for shell, offered in (("bash", offered_by_bash), ("fish", offered_by_fish)):
        missing = set(commands) - offered(name, [], "")
        expect(not missing, f"{shell}: {sorted(missing)} not offered behind {name}")
    for command in commands:
        flags = flags_in(help_of(program, command))
        check_page(name, command, flags, sections)
        check_completions(name, command, flags)
    return len(commands)


def main(arguments):
    if arguments == ["PAGES"]:
        check_pages()
    elif arguments == ["MENU"]:
        check_menu()
    elif arguments == ["PACKAGE"]:
        check_package()
    elif len(arguments) > 1 and arguments[0] == "HELP":
        for program in arguments[1:]:
            commands = check_help(program)
            print(f"{program}: {commands} subcommands")
    else:
        sys.exit(__doc__)
    for failure in failures:
        print(failure, file=sys.stderr)
    return 1 if failures else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
