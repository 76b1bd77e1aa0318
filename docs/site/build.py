#!/usr/bin/python3
"""Builds the site from docs/ and the rows of the commands: build/site/index.html.

Usage: scripts/docs      (installs and builds what this needs)

In the end all links, anchors and words are checked.
"""
import html
import html.parser
import json
import pathlib
import re
import shutil
import subprocess
import sys
import urllib.parse

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
PAGES = ROOT / "build/docs"
SITE = ROOT / "build/site"
SPEED = ROOT / "docs/speed.md"  # once there is a record
VELMOR = ROOT / "build/release/velmor/velmor"


def velmor(*words):
    return subprocess.run([VELMOR, *words], check=True, capture_output=True, text=True).stdout


def families():
    """Pairs of title and commands, as `velmor help` lists them; the file of each is that of its
    manual page."""
    files = re.findall(r'\{"(\w+)", "([^"]+)", span_of', (ROOT / "velmor/lexiva/commands.cpp").read_text())
    file_of = {title: file for file, title in files}
    for block in velmor("help").split("\n\n"):
        title, _, commands = block.partition("\n")
        if title in file_of:
            yield file_of[title], title, commands.split()


def section(command):
    """What help says of a command, as a section of a page."""
    text = velmor("help", command)
    head, _, example = text.partition("\n\n")
    lines = head.split("\n")
    signature, says, rest = lines[0], lines[1].strip(), lines[2:]
    out = [f"## {command}", "", f"    {signature}", "", f"<p>{html.escape(says)}</p>", "<dl>"]
    notes = []
    for line in rest:
        label = re.match(r"  (Returns|Cost:|Source:) (.*)", line)
        argument = re.match(r"    (.{11,}?)  (\S.*)", line)
        if label or argument:
            term = label[1].rstrip(":") if label else f"<code>{html.escape(argument[1].strip())}</code>"
            out.append(f"<dt>{term}</dt><dd>{html.escape((label or argument)[2])}</dd>")
        else:
            notes.append(f"<p>{html.escape(line.strip())}</p>")
    out += ["</dl>", "", *notes, "", "```velmor"]
    out += [line[2:] for line in example.rstrip("\n").replace(";\n", "\n", 1).split("\n")]
    return says, "\n".join([*out, "```", ""])


def write_commands():
    """A page for each family and one with all; returns the navigation."""
    index = ["# All commands", ""]
    navigation = ["      - All: commands/index.md"]
    for file, title, commands in families():
        navigation.append(f"      - {title}: commands/{file}.md")
        page = [f"# {title}", "", " · ".join(f"[{command}](#{command.lower()})" for command in commands), ""]
        index += [f"## [{title}]({file}.md)", "", "| command | |", "|---|---|"]
        for command in commands:
            says, text = section(command)
            page.append(text)
            says = re.sub(r"([\\`*_\[\]|<>])", r"\\\1", says)
            index.append(f"| [{command}]({file}.md#{command.lower()}) | {says} |")
        index.append("")
        (PAGES / f"commands/{file}.md").write_text("\n".join(page))
    (PAGES / "commands/index.md").write_text("\n".join(index))
    return "\n".join(navigation)


def gather():
    shutil.rmtree(PAGES, ignore_errors=True)
    (PAGES / "commands").mkdir(parents=True)
    for page in (ROOT / "docs").glob("*.md"):
        shutil.copy(page, PAGES)
    if SPEED.exists():
        shutil.copytree(ROOT / "docs/speed", PAGES / "speed")
    shutil.copy(ROOT / "CHANGELOG.md", PAGES / "changelog.md")
    shutil.copytree(ROOT / "docs/site/theme", PAGES.parent / "theme", dirs_exist_ok=True)
    settings = (ROOT / "docs/site/mkdocs.yml").read_text()
    settings = settings.replace("../../build/", "").replace("@commands@", write_commands())
    for page in PAGES.glob("*.md"):
        if page.name != "speed.md" and f": {page.name}\n" not in settings:
            sys.exit(f"docs/site/mkdocs.yml does not say where {page.name} stands")
    settings = settings.replace("@speed@", "  - Speed: speed.md\n" if SPEED.exists() else "")
    (PAGES.parent / "mkdocs.yml").write_text(settings)


def build():
    import mkdocs
    subprocess.run(["mkdocs", "build", "--quiet", "--strict", "--clean", "--config-file",
                    PAGES.parent / "mkdocs.yml"], check=True)
    search = pathlib.Path(mkdocs.__file__).parent / "contrib/search/templates/search"
    shutil.copy(search / "lunr.js", SITE / "search")
    sections = json.loads((SITE / "search/search_index.json").read_text())["docs"]
    (SITE / "search/index.js").write_text("const sections = " + json.dumps(sections) + ";\n")
    for page in SITE.rglob("*.html"):
        page.write_text(re.sub(r'(<code class="language-(?:velmor|console)">)(.*?)</code>', marked,
                               page.read_text(), flags=re.S))


def marked(block):
    """What is typed stands out from what comes back."""
    lines = re.sub(r"^(&gt;|\$) (.*)$", r"<i>\1</i> <b>\2</b>", block[2], flags=re.M)
    return f"{block[1]}{lines}</code>"


class Links(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.loaded = set(), [], []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        attributes = dict(attributes)
        self.ids.add(attributes.get("id"))
        link = attributes.get("href") or attributes.get("src")
        if link and not link.startswith("data:"):
            (self.links if tag == "a" else self.loaded).append(link)


def broken_links():
    pages = {page: Links(page.read_text()) for page in SITE.rglob("*.html")}
    for page, content in pages.items():
        for link in content.links + content.loaded:
            url = urllib.parse.urlsplit(link)
            if url.scheme:
                if link in content.loaded:
                    yield page, link
                continue
            target = (page.parent / urllib.parse.unquote(url.path)).resolve() if url.path else page
            found = target.is_file()
            if found and url.fragment and target in pages:
                found = url.fragment in pages[target].ids
            if not found:
                yield page, link
    for page in ROOT.glob("*.md"):
        for link in re.findall(r"\]\(([^):#]+)", page.read_text()):
            if not (ROOT / link).exists():
                yield page, link


def prose(page):
    """What is written in words: no programs, names in code, links, or rows of figures."""
    text = re.sub(r"^```.*?^```$", "", page.read_text(), flags=re.M | re.S)
    if page.name == "speed.md":
        text = re.sub(r"^\|.*", "", text, flags=re.M)
    text = re.sub(r"^    .*|^  (?=<)|<code>.*?</code>|`[^`]*`|<[^>]*>|\]\([^)]*\)|https?:\S*", " ", text, flags=re.M)
    return html.unescape(text)


def misspelt():
    """Words that aspell does not know, and neither does docs/site/words.txt; commands are known."""
    known = set((ROOT / "docs/site/words.txt").read_text().split()) | set(velmor("help").split())
    pages = [*PAGES.rglob("*.md"), *ROOT.glob("*.md"), ROOT / "bench/README.md", ROOT / "data/README.md"]
    for page in sorted(pages):
        listed = subprocess.run(["aspell", "list", "--lang=en_GB", "--encoding=utf-8"], input=prose(page),
                                check=True, capture_output=True, text=True).stdout.split()
        for word in sorted(set(listed) - known):
            yield f"{page.relative_to(ROOT)}: {word}"


def main():
    gather()
    build()
    broken = [f"{page.relative_to(ROOT)}: {link}" for page, link in broken_links()]
    if broken:
        sys.exit("broken links:\n" + "\n".join(broken))
    unknown = list(misspelt())
    if unknown:
        sys.exit("unknown words (docs/site/words.txt takes those that are right):\n" + "\n".join(unknown))
    print(f"{SITE.relative_to(ROOT)}/index.html")


main()
