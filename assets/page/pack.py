"""Lays the page out: BUILD/site for any server, and BUILD/korvane.html, the same in one file.

usage: pack.py SOURCE BUILD
"""

import base64
import hashlib
import json
import pathlib
import shutil
import sys

source, build = map(pathlib.Path, sys.argv[1:])
page = source / "assets" / "page"
icon = source / "assets" / "package" / "korvane.svg"
programs = ["korvane.js", "korvane.wasm", "korvane-worker.js", "korvane-worker.wasm"]
template = (page / "index.html").read_text()
style = (page / "page.css").read_text()


def script(parts):
    return "\n".join((page / name).read_text() for name in ["words.js", "zip.js", "levels.js", parts, "page.js"])


def policy(scripts, styles, workers, connections):
    # data: for the pictures and the icon, blob: for what is handed out to the player.
    return "; ".join([
        "default-src 'none'", f"script-src {scripts} 'wasm-unsafe-eval'", f"style-src {styles}",
        "img-src 'self' data:", f"worker-src {workers}", f"connect-src {connections}", "manifest-src 'self'",
        "base-uri 'none'", "form-action 'none'"])


def filled(**parts):
    text = template
    for name, part in parts.items():
        text = text.replace(f"@{name}@", part)
    return text


def coded(name):
    return base64.b64encode((build / name).read_bytes()).decode()


def digest(text):
    return "'sha256-" + base64.b64encode(hashlib.sha256(text.encode()).digest()).decode() + "'"


def make_site():
    site = build / "site"
    shutil.rmtree(site, ignore_errors=True)
    site.mkdir()
    for name in programs:
        shutil.copy(build / name, site)
    for file in [icon, page / "page.css", page / "manifest.webmanifest"]:
        shutil.copy(file, site)
    (site / "page.js").write_text(script("parts_in_site.js"))
    (site / "index.html").write_text(filled(
        policy=policy("'self'", "'self'", "'self'", "'self'"),
        icon="korvane.svg",
        head='<link rel="preload" href="korvane.wasm" as="fetch" crossorigin>\n'
             '<script defer src="page.js"></script>\n<script defer src="korvane.js"></script>\n'
             '<link rel="manifest" href="manifest.webmanifest">\n<link rel="stylesheet" href="page.css">',
        scripts=""))
    files = sorted(site.iterdir())
    version = hashlib.sha256(b"".join(file.read_bytes() for file in files)).hexdigest()[:16]
    kept = ["./"] + [file.name for file in files]
    text = (page / "offline.js").read_text()
    (site / "offline.js").write_text(text.replace("@version@", version).replace("@files@", json.dumps(kept)))


def make_file():
    def inline(text):
        return text.replace("</script", "<\\/script")

    around = inline(script("parts_in_file.js") + "\nModule.wasmBinary = carriedBytes('wasm');\n")
    game = inline((build / "korvane.js").read_text())
    worker = inline((build / "korvane-worker.js").read_text())
    scripts = (f'<script type="application/wasm" id="wasm">{coded("korvane.wasm")}</script>\n'
               f'<script type="application/wasm" id="worker-wasm">{coded("korvane-worker.wasm")}</script>\n'
               f'<script type="text/plain" id="worker-js">{worker}</script>\n'
               f"<script>{around}</script>\n<script>{game}</script>")
    (build / "korvane.html").write_text(filled(
        policy=policy(f"{digest(around)} {digest(game)}", digest(style), "blob:", "'none'"),
        icon="data:image/svg+xml;base64," + base64.b64encode(icon.read_bytes()).decode(),
        head=f"<style>{style}</style>",
        scripts=scripts))


make_site()
make_file()
