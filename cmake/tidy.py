#!/usr/bin/env python3
"""clang-tidy over the sources of the rooms, as far as they have not been found clean before.

  tidy.py          what changed since the last run that found nothing; where there was none yet, as in a fresh clone,
                   what the last commit and the work tree changed
  tidy.py --all    every source

Reads the compile commands of the preset `tidy`, which costs no build. A source stands for its header too: the one of the
same name beside it; a header without one belongs to the first source that includes it.
"""
import hashlib
import os
import re
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOMS = ('platform', 'core', 'document', 'search', 'dossiers', 'collection', 'outil', 'shell')
INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.M)
BUILD = Path('build/tidy')
CLEAN = BUILD / 'clean.txt'


def git(*arguments):
    return subprocess.run(['git', *arguments], check=True, capture_output=True, text=True).stdout.split('\n')[:-1]


def owned_headers(sources, headers):
    """The headers that each source stands for."""
    owned = {source: [] for source in sources}
    left = set()
    for header in headers:
        beside = header[:-2] + '.cpp'
        owned[beside].append(header) if beside in owned else left.add(header)
    for source in sources:
        for name in INCLUDE.findall(Path(source).read_text(encoding='utf-8')):
            for header in (name, os.path.normpath(os.path.join(os.path.dirname(source), name))):
                if header in left:
                    left.remove(header)
                    owned[source].append(header)
    return owned


def digest(source, headers, rules):
    content = hashlib.sha256(rules)
    for file in [source, *headers]:
        content.update(file.encode() + b'\0' + Path(file).read_bytes())
    return content.hexdigest()


def check(source):
    result = subprocess.run(['clang-tidy', '-p', str(BUILD), '--quiet', source], capture_output=True, text=True)
    if result.returncode:
        print(result.stdout, result.stderr, sep='\n', flush=True)
    return source, result.returncode == 0


def main():
    files = [file for file in git('ls-files', *ROOMS) if os.path.exists(file)]
    sources = [file for file in files if file.endswith('.cpp')]
    owned = owned_headers(sources, [file for file in files if file.endswith('.h')])
    rules = Path('.clang-tidy').read_bytes()
    digests = {source: digest(source, headers, rules) for source, headers in owned.items()}
    if '--all' in sys.argv[1:]:
        due = sources
    elif CLEAN.exists():
        known = set(CLEAN.read_text().split())
        due = [source for source in sources if digests[source] not in known]
    else:
        changed = {*git('show', '--name-only', '--format=', 'HEAD'), *git('diff', '--name-only', 'HEAD')}
        due = [source for source in sources if changed.intersection([source, *owned[source]])]
    print(f'{len(due)} of {len(sources)} sources', flush=True)
    with ThreadPoolExecutor(os.cpu_count()) as workers:
        bad = {source for source, clean in workers.map(check, due) if not clean}
    CLEAN.write_text('\n'.join(sorted(digests[source] for source in sources if source not in bad)) + '\n')
    return 1 if bad else 0


if __name__ == '__main__':
    sys.exit(main())
