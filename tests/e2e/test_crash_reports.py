"""What the program asks of Windows for the case that it crashes."""
import subprocess

import desk


def test_the_start_keeps_the_heap_out_of_crash_reports(monkeypatch, tmp_path):
    # Wine tells of the call, which it does nothing for.
    monkeypatch.setenv("WINEDEBUG", "fixme+all")
    told = tmp_path / "told"
    with told.open("wb") as stream:
        monkeypatch.setattr(desk, "start_program", lambda folder: subprocess.Popen(
            ["wine", folder / desk.EXE.name], cwd=folder, stderr=stream))
        with desk.running_program():
            pass
    assert "WerSetFlags (1)" in told.read_text(errors="replace")
