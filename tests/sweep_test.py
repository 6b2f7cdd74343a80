#!/usr/bin/env python3
"""The tools' output for other programs, and sweeps in parts: sweep_test.py TARNVEIL_SIM FRAME_BENCHMARK SOURCE_FOLDER"""
import json
import pathlib
import subprocess
import sys
import tempfile
import unittest

import jsonschema

SIM, BENCHMARK, SOURCE = sys.argv.pop(1), sys.argv.pop(1), pathlib.Path(sys.argv.pop(1))
GAMES = [SIM, "--folder", str(SOURCE / "assets/data"), "--play", "attack", "--pilot", "sweep", "--seeds", "7..24"]


def run(*command, status=0):
    done = subprocess.run(command, text=True, capture_output=True)
    assert done.returncode == status, f"{command} ended with {done.returncode}: {done.stderr}"
    return done.stdout if status == 0 else done.stderr


def schema(name):
    return json.loads((SOURCE / "docs/schema" / f"{name}.schema.json").read_text())


class SweepTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.lines = run(*GAMES, "--json")
        cls.summary = run(*GAMES)

    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def test_output_is_as_its_schema_says(self):
        games = [json.loads(line) for line in self.lines.splitlines()]
        self.assertEqual(list(range(7, 25)), [game["seed"] for game in games])
        for game in games:
            jsonschema.validate(game, schema("game"))
        report = json.loads(run(*GAMES[:5], "--report", "--seeds", "1", "--json"))
        jsonschema.validate(report, schema("report"))
        self.assertTrue(all(row["play"] == "attack" for row in report))
        # It also fails when QPainter's pixels are others than ours.
        jsonschema.validate(json.loads(run(BENCHMARK, "--rounds", "3", "--json")), schema("benchmark"))

    def test_verified_games_are_ranked_and_forged_ones_told(self):
        for seed in ("1", "2"):
            run(*GAMES[:-2], "--seed", seed, "--record", str(self.folder / f"{seed}.tarnveil-run"))
        (self.folder / "bad.tarnveil-run").write_bytes(b"?" + (self.folder / "1.tarnveil-run").read_bytes()[1:])
        (self.folder / "again.tarnveil-run").write_bytes((self.folder / "1.tarnveil-run").read_bytes())
        page = self.folder / "page.html"
        verify = [*GAMES[:3], "--verify", str(self.folder)]
        done = subprocess.run([*verify, "--json", "--html", str(page)], text=True, capture_output=True)
        self.assertEqual(1, done.returncode)
        verified = json.loads(done.stdout)
        jsonschema.validate(verified, schema("verified"))
        self.assertEqual(["agrees", "agrees", "agrees", "damaged"], sorted(each["verdict"] for each in verified["runs"]))
        (ranking,) = verified["rankings"]
        scores = [place["score"] for place in ranking["places"]]
        self.assertEqual(2, len(scores), "the same game counts once")
        self.assertEqual(sorted(scores, reverse=True), scores)
        self.assertEqual(2, page.read_text().count("./#run="))
        self.assertIn("damaged", subprocess.run(verify, text=True, capture_output=True).stdout)

    def test_two_shards_through_gnu_parallel_are_the_whole(self):
        shards = str(self.folder / "shard")
        run("parallel", "--jobs", "2", *GAMES, "--jobs", "1", "--shard", "{}/2", "--resume", shards + "{}", ":::", "2", "1")
        self.assertEqual(self.summary, run(SIM, "--merge", shards + "2", shards + "1"))
        self.assertEqual(self.lines, run(SIM, "--merge", shards + "1", shards + "2", "--json"))
        self.assertIn(f"{shards}2:1: seed 8 stands here again", run(SIM, "--merge", shards + "2", shards + "2", status=1))
        self.assertIn("seed 8 is missing", run(SIM, "--merge", shards + "1", status=1))

    def test_an_interrupted_sweep_goes_on_where_it_stopped(self):
        kept = self.folder / "kept"
        for cut in (0, 5, len(self.lines) // 2, len(self.lines) - 1, len(self.lines)):
            kept.write_text(self.lines[:cut])
            self.assertEqual(self.summary, run(*GAMES, "--resume", str(kept)), f"cut at {cut}")
            self.assertEqual(self.lines, kept.read_text(), f"cut at {cut}")

    def test_files_of_something_else_are_refused_and_left_alone(self):
        first = self.lines.splitlines()[0]
        cases = {
            "is of the sweep": first.replace("sweep", "idle") + "\n" + first[:20],
            "is not of this shard": first.replace('"seed":7', '"seed":6') + "\n",
            "no game has": first.replace('"score":', '"points":1,"score":') + "\n",
            "parse error": "notes",
            "'seed' not found": first.replace('"seed"', '"sead"') + "\n",
        }
        for complaint, text in cases.items():
            path = self.folder / "file"
            path.write_text(text)
            self.assertRegex(run(*GAMES, "--resume", str(path), status=1), f"^tarnveil-sim: {path}:1: .*{complaint}")
            self.assertEqual(text, path.read_text())


if __name__ == "__main__":
    unittest.main()
