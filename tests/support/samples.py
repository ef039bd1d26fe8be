"""What the scripts share that read exports of other applications through the program `replay`.

The exports lie beside the source folder, in ../shared/samples.
"""
import base64
import io
import json
import os
import pathlib
import subprocess
import zipfile

SAMPLES = pathlib.Path(__file__).resolve().parents[3] / "shared" / "samples"
REPLAY = pathlib.Path(os.environ["VELMAR_BIN"]) / "replay"
# Of a test that can't run where it is.
SKIPPED = 77


def replayed(cases):
    lines = "".join(json.dumps(case) + "\n" for case in cases)
    run = subprocess.run([REPLAY], input=lines.encode(), stdout=subprocess.PIPE, check=True)
    answers = [json.loads(line) for line in run.stdout.split(b"\n") if line]
    assert len(answers) == len(cases), "an answer for each case"
    return [answer["out"] for answer in answers]


def encoded(data):
    """The bytes, or those of a file, as a case holds them."""
    return base64.b64encode(data if isinstance(data, bytes) else data.read_bytes()).decode()


def paths_below(root):
    return sorted(p for p in root.rglob("*") if p.is_file()) if root.is_dir() else [root]


def sample_case(function, root):
    """A folder or a file of the samples, as a case."""
    files = {str(p.relative_to(root.parent)): {"base64": encoded(p)} for p in paths_below(root)}
    return {"fn": function, "in": {"files": files, "picked": root.name, "name": "x"}}


def zipped_case(function, root):
    """The same folder in a zip, as a case."""
    archive = io.BytesIO()
    with zipfile.ZipFile(archive, "w") as writing:
        for path in paths_below(root):
            writing.writestr(str(path.relative_to(root)), path.read_bytes())
    name = root.name + ".zip"
    return {"fn": function, "in": {"files": {name: {"base64": encoded(archive.getvalue())}},
                                   "picked": name, "name": "x"}}
