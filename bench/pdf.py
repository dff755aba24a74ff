#!/usr/bin/env python3
"""Measures how long a document of a megabyte takes to become a PDF, and how large that is, beside a peer in the same run.

    bench/pdf.py [--build DIR] [--rounds N] [--pages N]

Both read the same RTF file and are measured as whole processes, from their start to their end; the peer is an office suite,
where one is installed, with a profile that it has made before. Figures are medians. At last the memory of a job of so many
pages is told.
"""
import argparse
import os
import pathlib
import shutil
import statistics
import subprocess
import tempfile
import time

ROOT = pathlib.Path(__file__).resolve().parent.parent


def timed(command):
    start = time.perf_counter()
    subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=True)
    return time.perf_counter() - start


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=pathlib.Path, default=ROOT / "build")
    parser.add_argument("--rounds", type=int, default=3)
    parser.add_argument("--pages", type=int, default=5000)
    options = parser.parse_args()
    os.environ["QT_QPA_PLATFORM"] = "offscreen"
    ours = options.build.resolve() / "bin" / "bench_paper"
    office = shutil.which("soffice") or shutil.which("libreoffice")
    with tempfile.TemporaryDirectory() as folder:
        work = pathlib.Path(folder)
        document = work / "document.rtf"
        subprocess.run([ours, "--export", document], check=True)
        commands = {"ours": ([ours, "--convert", document, work / "ours.pdf"], work / "ours.pdf")}
        if office:
            convert = [office, f"-env:UserInstallation=file://{work}/profile", "--headless", "--convert-to", "pdf", "--outdir",
                       work / "peer", document]
            timed(convert)
            commands["LibreOffice"] = (convert, work / "peer" / "document.pdf")
        seconds = {name: [] for name in commands}
        for _ in range(options.rounds):
            for name, (command, _file) in commands.items():
                seconds[name].append(timed(command))
        for name, (_command, file) in commands.items():
            print(f"{name:<14}{statistics.median(seconds[name]):>8.2f} s{file.stat().st_size / 1e3:>12,.0f} kB")
    subprocess.run([ours, "--weigh", str(options.pages)], check=True)


if __name__ == "__main__":
    main()
