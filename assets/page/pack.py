"""Lays the pages out: BUILD/site with the game and the workshop for any server, and BUILD/korvane.html, the game in
one file.

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
programs = [name + end for name in ["korvane", "korvane-worker", "korvane-oficina"] for end in [".js", ".wasm"]]
# What only the workshop's page fetches.
workshop = ["oficina.html", "workshop.js", "korvane-oficina.js", "korvane-oficina.wasm"]
of_game = {"title": "Korvane",
           "description": "Um jogo de bola, raquete e blocos. A game of ball, paddle and blocks."}
of_workshop = {"title": "Oficina do Korvane",
               "description": "Faça fases do Korvane e mande-as por um endereço. Make levels and send them by a link."}
template = (page / "index.html").read_text()
style = (page / "page.css").read_text()


def script(*own):
    return "\n".join((page / name).read_text() for name in [*own, "words.js", "zip.js", "levels.js", "page.js"])


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


def page_of(own, program, other, words):
    return filled(
        policy=policy("'self'", "'self'", "'self'", "'self'"),
        icon="korvane.svg",
        head=f'<link rel="preload" href="{program}.wasm" as="fetch" crossorigin>\n' +
             "".join(f'<script defer src="{name}.js"></script>\n' for name in [own, "page", program]) +
             '<link rel="manifest" href="manifest.webmanifest">\n<link rel="stylesheet" href="page.css">',
        other=f'<a id="other" href="{other}"></a>',
        scripts="", **words)


def make_site():
    site = build / "site"
    shutil.rmtree(site, ignore_errors=True)
    site.mkdir()
    for name in programs:
        shutil.copy(build / name, site)
    for file in [icon, *(page / name for name in ["page.css", "manifest.webmanifest", "game.js", "workshop.js"])]:
        shutil.copy(file, site)
    (site / "page.js").write_text(script("parts_in_site.js"))
    (site / "index.html").write_text(page_of("game", "korvane", "oficina.html", of_game))
    (site / "oficina.html").write_text(page_of("workshop", "korvane-oficina", "./", of_workshop))
    files = sorted(site.iterdir())
    version = hashlib.sha256(b"".join(file.read_bytes() for file in files)).hexdigest()[:16]
    game = ["./"] + [file.name for file in files if file.name not in workshop]
    text = (page / "offline.js").read_text().replace("@version@", version)
    (site / "offline.js").write_text(text.replace("@parts@", json.dumps({"game": game, "workshop": workshop})))


def make_file():
    def inline(text):
        return text.replace("</script", "<\\/script")

    around = inline(script("parts_in_file.js", "game.js") + "\nModule.wasmBinary = carriedBytes('wasm');\n")
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
        other="",
        scripts=scripts, **of_game))


make_site()
make_file()
