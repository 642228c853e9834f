#!/usr/bin/env python3
"""Runs clang-tidy or clazy over sources in groups, for tools/lint.sh.

usage: lintgroups.py tidy|clazy FOLDER JOBS < SOURCES

Most of what such a check costs are the library's headers, which all sources include. So up to eight sources
of one folder are read as one, through a file that includes them. Where their unnamed namespaces collide,
those that the compiler names are read alone. FOLDER holds compile_commands.json, the states of the sources
(lintstates.py) and the marks: a source without a finding is not read again until its state changes. Ends
with 1 where there is a finding.
"""
import collections
import concurrent.futures
import json
import os
import re
import shlex
import shutil
import subprocess
import sys

GROUP = 8
HEADERS = '--header-filter=^%s/(src|tools|tests|benchmarks)/' % os.getcwd()
QUIET = '--extra-arg=-Wno-gnu-zero-variadic-macro-arguments'
# Old-style connects and slots that Qt finds by their names are this program's conventions; the rest of
# level 1 holds, but for the objects by which benchmarks make themselves known. Sources that moc makes are
# not ours.
CLAZY = 'level1,no-old-style-connect,no-connect-by-name'
# Where sources are read as one, what one declares may hide another's names. Within a source the build tells.
SHADOWS = '--extra-arg=-Wno-shadow'

check, folder, jobs = sys.argv[1], os.path.abspath(sys.argv[2]), int(sys.argv[3])
commands = {entry['file']: entry for entry in json.load(open(folder + '/compile_commands.json'))}
states = dict(line.rstrip('\n').rsplit(' ', 1) for line in open(folder + '/states'))


def mark(source):
    return '%s/%s.%s.%s' % (folder, check, source.replace('/', '-'), states.get(source, ''))


def tool(sources, database, path):
    if check == 'tidy':
        command = ['clang-tidy', '--quiet', '-p', database, HEADERS, QUIET, SHADOWS]
        if len(sources) > 1:
            command += ['--checks=-bugprone-suspicious-include', '--extra-arg=-Wno-unused-function']
    else:
        checks = CLAZY + (',no-non-pod-global-static' if sources[0].startswith('benchmarks/') else '')
        command = ['clazy-standalone', '-p', database, '--only-qt', '--checks=' + checks, HEADERS, QUIET,
                   SHADOWS, r'--ignore-dirs=autogen|\.moc']
    done = subprocess.run(
        command + [path], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, errors='replace', text=True)
    clean = done.returncode == 0 if check == 'tidy' else not re.search(r'(warning|error):', done.stdout)
    return clean, re.sub(r'(?m)^\d+ warnings?.* (generated|treated).*\n', '', done.stdout).strip()


def arguments(source):
    """How the source is compiled, without its own name and its object's."""
    words, kept = iter(shlex.split(commands[os.path.abspath(source)]['command'])), []
    for word in words:
        if word in ('-isystem', '-include'):
            kept.append((word, next(words)))
        elif word == '-o':
            next(words)
        elif word.startswith('-') and word != '-c':
            kept.append((word,))
    return kept


def read(sources):
    """Findings of the sources: the groups that still have to be read, or a text."""
    if len(sources) == 1:
        clean, text = tool(sources, folder, sources[0])
    else:
        place = '%s/groups/%s.%s' % (folder, sources[0], check)
        os.makedirs(place, exist_ok=True)
        path = place + '/group.cpp'
        with open(path, 'w') as out:
            for number, source in enumerate(sources):
                out.write('#define main main%d\n#include "%s"\n' % (number, os.path.abspath(source)))
                out.write('#undef main\n')
        words = list(dict.fromkeys(word for source in sources for word in arguments(source)))
        command = shlex.join(['c++'] + [part for word in words for part in word] + ['-c', path])
        with open(place + '/compile_commands.json', 'w') as out:
            directory = commands[os.path.abspath(sources[0])]['directory']
            json.dump([{'directory': directory, 'file': path, 'command': command}], out)
        clean, text = tool(sources, place, path)
        errors = re.findall(r'(?m)^(\S+?):\d+:\d+: (?:fatal )?error: .*?(\[.*\])?$', text)
        alone = {os.path.relpath(name) for name, kind in errors if kind in ('', '[clang-diagnostic-error]')}
        if alone:
            alone = alone & set(sources) or set(sources)
            rest = [source for source in sources if source not in alone]
            return [[source] for source in sources if source in alone] + ([rest] if rest else []), ''
    if clean:
        for source in sources:
            open(mark(source), 'w').close()
    return [], text if not clean else ''


# The rules of a folder hold for the groups of its sources.
for path, _, names in os.walk('.'):
    if '.clang-tidy' in names and not path.startswith(('./build', './.')) and path != '.':
        os.makedirs(folder + '/groups/' + path, exist_ok=True)
        shutil.copy(path + '/.clang-tidy', folder + '/groups/' + path)
stale = collections.defaultdict(list)
for line in sys.stdin:
    if line.strip() and not os.path.exists(mark(line.strip())):
        stale[os.path.dirname(line.strip())].append(line.strip())
groups = [sources[i:i + GROUP] for sources in stale.values() for i in range(0, len(sources), GROUP)]
failed = False
with concurrent.futures.ThreadPoolExecutor(jobs) as pool:
    running = {pool.submit(read, group) for group in groups}
    while running:
        done, running = concurrent.futures.wait(running, return_when=concurrent.futures.FIRST_COMPLETED)
        for future in done:
            more, text = future.result()
            running |= {pool.submit(read, group) for group in more}
            if text:
                failed = True
                print(text, flush=True)
sys.exit(failed)
