"""Builds the packages of Python for pip, pipx and pre-commit: the hooks of PEP 517.

A wheel holds what `cmake --install` puts into bin, and the manual pages. Nothing in it is written
in Python, so one wheel serves every version of it. The same sources and programs give the same
bytes: entries are sorted, owned by nobody, and as old as SOURCE_DATE_EPOCH or the last commit.

CMAKE_ARGS in the environment adds arguments for CMake. `-C build-dir=DIR` builds in that folder
and keeps it; unless given, a temporary one is used.
"""

import base64
import contextlib
import gzip
import hashlib
import io
import os
import re
import shlex
import shutil
import subprocess
import sysconfig
import tarfile
import tempfile
import time
import zipfile
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
VERSION = re.search(r'programVersion = "(.+)"', (ROOT / "src/driver/version.h").read_text()).group(
    1
)
NAME = f"qorn-{VERSION}"
DIST_INFO = f"{NAME}.dist-info"

METADATA = f"""\
Metadata-Version: 2.1
Name: qorn
Version: {VERSION}
Summary: Source formatter for VHDL
Keywords: vhdl,formatter,fpga,beautifier
License: MIT
License-File: LICENSE
Classifier: Environment :: Console
Classifier: Programming Language :: C++
Classifier: Topic :: Scientific/Engineering :: Electronic Design Automation (EDA)
Requires-Python: >=3.7
Description-Content-Type: text/markdown

"""


def get_requires_for_build_wheel(config_settings=None):
    """Build tools that the machine lacks and the package index has; it has no compiler."""
    has_builder = shutil.which("ninja") or shutil.which("make")
    return ([] if shutil.which("cmake") else ["cmake>=3.18"]) + ([] if has_builder else ["ninja"])


def prepare_metadata_for_build_wheel(metadata_directory, config_settings=None):
    folder = Path(metadata_directory, DIST_INFO)
    folder.mkdir()
    (folder / "METADATA").write_bytes(metadata())
    return DIST_INFO


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    with contextlib.ExitStack() as stack:
        temporary = Path(stack.enter_context(tempfile.TemporaryDirectory()))
        build = Path((config_settings or {}).get("build-dir", temporary / "build")).resolve()
        prefix = temporary / "prefix"
        install(build, prefix)
        tags = platform_tags(build)
        wheel = Path(wheel_directory, f"{NAME}-py3-none-{'.'.join(tags)}.whl")
        write_wheel(wheel, wheel_files(prefix, tags))
    return wheel.name


def build_sdist(sdist_directory, config_settings=None):
    sdist = Path(sdist_directory, f"{NAME}.tar.gz")
    with open(sdist, "wb") as file, gzip.GzipFile("", "wb", mtime=0, fileobj=file) as packed:
        with tarfile.open(fileobj=packed, mode="w", format=tarfile.PAX_FORMAT) as archive:
            for path in sources():
                mode = 0o755 if os.access(ROOT / path, os.X_OK) else 0o644
                add_to_tar(archive, path, (ROOT / path).read_bytes(), mode)
            add_to_tar(archive, "PKG-INFO", metadata(), 0o644)
    return sdist.name


# --- Building ---


def install(build, prefix):
    """Configures, unless the folder is configured, builds, and installs below the prefix."""
    if not shutil.which("cmake"):
        raise SystemExit("qorn: no cmake found; building qorn needs CMake 3.18 or newer")
    if not (build / "CMakeCache.txt").exists():
        compilers = [os.environ.get("CXX") or "c++", "g++", "clang++"]
        if not any(shutil.which(shlex.split(name)[0]) for name in compilers):
            raise SystemExit(
                "qorn: no C++ compiler found; building qorn needs one for C++20, such as g++ 10"
            )
        generator = ["-G", "Ninja"] if shutil.which("ninja") else []
        arguments = shlex.split(os.environ.get("CMAKE_ARGS", ""))
        run("cmake", "-S", ROOT, "-B", build, *generator, "-DCMAKE_BUILD_TYPE=Release", *arguments)
    run("cmake", "--build", build, "--config", "Release", "--parallel", str(os.cpu_count() or 1))
    # Programs for Windows are linked stripped; the tool would put the time into them.
    strip = [] if sysconfig.get_platform().startswith("win") else ["--strip"]
    run("cmake", "--install", build, "--config", "Release", "--prefix", prefix, *strip)


def run(*command):
    if subprocess.run(command).returncode:
        raise SystemExit("qorn: failed, as said above: " + " ".join(map(str, command)))


def platform_tags(build):
    """A static program needs none of the system's libraries, whichever C library that has."""
    platform = re.sub("[-.]", "_", sysconfig.get_platform())
    system, _, machine = platform.partition("_")
    if system == "linux" and "QORN_STATIC:BOOL=ON" in (build / "CMakeCache.txt").read_text():
        return [f"{kind}_{machine}" for kind in ("manylinux_2_17", "musllinux_1_1")]
    return [platform]


# --- Writing ---


def metadata():
    return METADATA.encode() + (ROOT / "README.md").read_bytes()


def wheel_files(prefix, tags):
    """The content and the mode of each entry, by name; the folder with the metadata comes last."""
    files = {}
    for path in sorted((prefix / "bin").iterdir()):
        files[f"{NAME}.data/scripts/{path.name}"] = (path.read_bytes(), 0o755)
    for path in sorted(prefix.glob("share/man/*/*")):
        files[f"{NAME}.data/data/{path.relative_to(prefix).as_posix()}"] = (
            path.read_bytes(),
            0o644,
        )
    heads = ["Wheel-Version: 1.0", f"Generator: {NAME}", "Root-Is-Purelib: false"]
    lines = heads + [f"Tag: py3-none-{tag}" for tag in tags]
    files[f"{DIST_INFO}/LICENSE"] = ((ROOT / "LICENSE").read_bytes(), 0o644)
    files[f"{DIST_INFO}/METADATA"] = (metadata(), 0o644)
    files[f"{DIST_INFO}/WHEEL"] = ("".join(f"{line}\n" for line in lines).encode(), 0o644)
    return files


def write_wheel(wheel, files):
    def add(name, content, mode):
        entry = zipfile.ZipInfo(name, time.gmtime(epoch())[:6])
        entry.compress_type = zipfile.ZIP_DEFLATED
        entry.external_attr = (0o100000 | mode) << 16
        archive.writestr(entry, content)

    record = f"{DIST_INFO}/RECORD"
    lines = []
    with zipfile.ZipFile(wheel, "w") as archive:
        for name, (content, mode) in files.items():
            add(name, content, mode)
            digest = (
                base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
            )
            lines.append(f"{name},sha256={digest},{len(content)}\n")
        add(record, "".join(lines + [f"{record},,\n"]).encode(), 0o644)


def sources():
    """The files that git knows; without git, those of a source distribution, all that is there."""
    if (ROOT / ".git").exists():
        listing = subprocess.run(
            ["git", "ls-files", "-z"], cwd=ROOT, check=True, stdout=subprocess.PIPE
        )
        paths = [Path(os.fsdecode(name)) for name in listing.stdout.split(b"\0") if name]
    else:
        paths = [
            path.relative_to(ROOT) for path in ROOT.rglob("*") if "__pycache__" not in path.parts
        ]
    return sorted(path for path in paths if (ROOT / path).is_file() and path.name != "PKG-INFO")


def add_to_tar(archive, name, content, mode):
    entry = tarfile.TarInfo(f"{NAME}/{Path(name).as_posix()}")
    entry.size, entry.mode, entry.mtime = len(content), mode, epoch()
    archive.addfile(entry, io.BytesIO(content))


def epoch():
    """Seconds; no earlier than the first moment that a ZIP archive can express."""
    seconds = os.environ.get("SOURCE_DATE_EPOCH", "")
    if not seconds and (ROOT / ".git").exists():
        command = ["git", "log", "-1", "--format=%ct"]
        seconds = subprocess.run(command, cwd=ROOT, stdout=subprocess.PIPE).stdout.decode()
    return max(315532800, int(seconds or (ROOT / "CHANGELOG.md").stat().st_mtime))
