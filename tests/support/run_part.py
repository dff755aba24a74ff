#!/usr/bin/env python3
"""Runs one part of a GoogleTest program and prints only what did not go well.

  run_part.py [--part I/N] [--limit SECONDS] [--report FILE] PROGRAM [ARGS...]
  run_part.py --summary FOLDER

The tests of a part share one process. A failed test is printed whole; a test that ends the process, or that takes longer
than the limit, is named with all that it had printed, and the tests behind it are counted as not run. The report names
every test with its outcome and milliseconds; the summary of a folder of reports gives the totals, the skipped tests with
their reasons, and what took longest.
"""
import argparse
import json
import os
import re
import selectors
import subprocess
import sys
import time
from pathlib import Path

START = re.compile(rb'\[ RUN      \] (\S+)')
END = re.compile(rb'\[(       OK |  FAILED  |  SKIPPED )\] (\S+?)(?:,.*)? \((\d+) ms\)\s*$')
TOTAL = re.compile(rb'\[==========\] Running (\d+) tests?')
# What a program says that cannot run here.
SKIPPED = 77
OUTCOMES = {b'       OK ': 'passed', b'  FAILED  ': 'failed', b'  SKIPPED ': 'skipped'}


def say(data):
    sys.stdout.buffer.write(data)
    sys.stdout.buffer.flush()


class Part:
    """What a program's output tells, line by line."""

    def __init__(self):
        self.expected = 0
        self.tests = []
        self.running = None
        self.since = time.monotonic()
        self.said = []
        self.beside = []

    def line(self, line):
        start, end, total = START.search(line), END.search(line), TOTAL.match(line)
        if total:
            self.expected = int(total[1])
        elif start:
            if self.running:
                self.ended('failed', 0, b'')
            self.running, self.since, self.said = start[1].decode(), time.monotonic(), [line]
        elif end and end[2].decode() == self.running:
            self.ended(OUTCOMES[end[1]], int(end[3]), line)
        else:
            (self.said if self.running else self.beside).append(line)

    def ended(self, outcome, milliseconds, line):
        test = {'name': self.running, 'outcome': outcome, 'ms': milliseconds}
        if outcome == 'skipped':
            test['reason'] = b' '.join(l.strip() for l in self.said[2:] if l.strip()).decode(errors='replace')
        if outcome == 'failed':
            say(b''.join(self.said) + line)
        self.tests.append(test)
        self.running, self.said, self.since = None, [], time.monotonic()

    def broken(self, why):
        """The process ended, or was ended, in the middle of a test."""
        say(b''.join(self.said) + f'\n[ {why} ] {self.running}\n'.encode())
        self.tests.append({'name': self.running, 'outcome': 'failed', 'ms': int((time.monotonic() - self.since) * 1000)})


def end(process):
    """Told to end, so that it can end what it has started itself; else by force."""
    process.terminate()
    try:
        process.wait(10)
    except subprocess.TimeoutExpired:
        process.kill()


def lines_of(process, part, limit):
    """The lines of a process until it ends; false when the limit ended it."""
    rest = b''
    with selectors.DefaultSelector() as ready:
        ready.register(process.stdout, selectors.EVENT_READ)
        while True:
            if not ready.select(0.5):
                # A process that it left behind may hold the pipe open.
                if process.poll() is not None:
                    break
                if time.monotonic() - part.since > limit:
                    end(process)
                    return False
                continue
            data = os.read(process.stdout.fileno(), 1 << 16)
            if not data:
                break
            rest += data
            *whole, rest = rest.split(b'\n')
            for line in whole:
                part.line(line + b'\n')
    if rest:
        part.line(rest)
    return True


def run(options):
    index, count = map(int, options.part.split('/'))
    environment = dict(os.environ, GTEST_TOTAL_SHARDS=str(count), GTEST_SHARD_INDEX=str(index - 1))
    process = subprocess.Popen(options.program + ['--gtest_color=no'], env=environment, stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    part = Part()
    in_time = lines_of(process, part, options.limit)
    status = process.wait()
    if status == SKIPPED and not part.tests:
        say(b''.join(part.beside))
        return SKIPPED
    if part.running:
        part.broken('TIMEOUT ' if not in_time else f'CRASHED: status {status}')
    if options.report:
        report = Path(options.report)
        report.parent.mkdir(parents=True, exist_ok=True)
        report.write_text(json.dumps({'program': options.program[0], 'tests': part.tests}), encoding='utf-8')
    failed = [test['name'] for test in part.tests if test['outcome'] == 'failed']
    missing = part.expected - len(part.tests)
    if status or failed or missing:
        say(b''.join(part.beside[-400:]))
    for name in failed:
        print(f'FAILED: {name}')
    if missing:
        print(f'NOT RUN: {missing} of {part.expected} tests')
    skipped = sum(test['outcome'] == 'skipped' for test in part.tests)
    print(f'{len(part.tests) - len(failed) - skipped} passed, {len(failed)} failed, {skipped} skipped')
    if not part.tests:
        print('The part has no test')
    return 1 if status or failed or missing or not part.tests else 0


def summary(folder):
    tests = []
    for file in sorted(Path(folder).glob('*.json')):
        tests += [dict(test, part=file.stem) for test in json.loads(file.read_text(encoding='utf-8'))['tests']]
    count = {outcome: sum(test['outcome'] == outcome for test in tests) for outcome in OUTCOMES.values()}
    for test in tests:
        if test['outcome'] == 'failed':
            print(f"FAILED  {test['part']}  {test['name']}")
        if test['outcome'] == 'skipped':
            print(f"SKIPPED {test['part']}  {test['name']}: {test.get('reason', '')}")
    print('Longest:', ', '.join(f"{test['name']} {test['ms'] / 1000:.1f} s"
                                for test in sorted(tests, key=lambda test: -test['ms'])[:10]))
    print(f"{count['passed']} passed, {count['failed']} failed, {count['skipped']} skipped")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument('--part', default='1/1')
    parser.add_argument('--limit', type=float, default=600, help='seconds for one test')
    parser.add_argument('--report')
    parser.add_argument('--summary')
    parser.add_argument('program', nargs=argparse.REMAINDER)
    options = parser.parse_args()
    if options.summary:
        return summary(options.summary)
    if not options.program:
        parser.error('no program')
    return run(options)


if __name__ == '__main__':
    sys.exit(main())
