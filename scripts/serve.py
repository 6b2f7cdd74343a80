#!/usr/bin/env python3
"""Serves a folder on this machine only: serve.py FOLDER [PORT]. Port 0 takes any free one.

Files that lie there compressed as well are sent so to browsers that take it.
"""
import functools
import http.server
import os
import sys

TYPES = {".js": "text/javascript", ".mjs": "text/javascript", ".wasm": "application/wasm", ".mp3": "audio/mpeg",
         ".webmanifest": "application/manifest+json", ".html": "text/html; charset=utf-8", ".css": "text/css",
         ".png": "image/png"}
CODINGS = (("br", ".br"), ("gzip", ".gz"))


class Handler(http.server.SimpleHTTPRequestHandler):
    extensions_map = {**http.server.SimpleHTTPRequestHandler.extensions_map, **TYPES}
    protocol_version = "HTTP/1.1"
    coding = None

    def translate_path(self, path):
        plain = super().translate_path(path)
        if plain.endswith("/") or os.path.isdir(plain):
            plain = os.path.join(plain, "index.html")
        self.plain, self.coding = plain, None
        accepted = self.headers.get("Accept-Encoding", "")
        for name, suffix in CODINGS:
            if name in accepted and os.path.isfile(plain + suffix):
                self.coding = name
                return plain + suffix
        return plain

    def guess_type(self, path):
        return super().guess_type(self.plain)

    def end_headers(self):
        if self.coding:
            self.send_header("Content-Encoding", self.coding)
        hashed = "-" in os.path.basename(self.plain)
        self.send_header("Cache-Control", "public, max-age=31536000, immutable" if hashed else "no-cache")
        self.send_header("Vary", "Accept-Encoding")
        super().end_headers()

    def handle(self):
        try:
            super().handle()
        except ConnectionError:
            pass  # the browser has closed a page

    def log_message(self, *_):
        pass


def main():
    folder, port = sys.argv[1], int(sys.argv[2]) if len(sys.argv) > 2 else 8017
    handler = functools.partial(Handler, directory=folder)
    try:
        server = http.server.ThreadingHTTPServer(("127.0.0.1", port), handler)
    except OSError as error:
        sys.exit(f"127.0.0.1:{port}: {error.strerror}. Another port: ./web --port N")
    print(f"http://127.0.0.1:{server.server_address[1]}/", flush=True)
    try:
        server.serve_forever()
    except KeyboardInterrupt:
        pass


main()
