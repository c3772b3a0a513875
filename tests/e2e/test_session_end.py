"""The end of the Windows session, as it comes when the user logs off or shuts the PC down: the system asks every
window, tells it, and ends its process."""
import subprocess

import desk


def end_session():
    subprocess.run(["wine", "wineboot", "--end-session"], check=True, timeout=60)


def test_logging_off_saves_what_is_typed_in_both_windows(user):
    process = desk.open_program(desk.EXE.parent)
    try:
        desk.drive("type", desk.NAME, "Zoe")
        desk.drive("press", desk.SETTINGS)
        desk.drive("type", desk.SITE, "typed.example")
        desk.drive("type", desk.PASSWORD, "qqqq wwww")
        end_session()
        process.wait(timeout=30)
    finally:
        if process.poll() is None:
            process.kill()
        process.wait()
    assert desk.is_true("wait-gone")
    with desk.running_program():
        assert desk.drive("text", desk.NAME) == "Zoe"
        desk.drive("press", desk.SETTINGS)
        assert desk.drive("text", desk.SITE) == "typed.example"
        assert desk.drive("text", desk.USER) == "owner"
        desk.drive("press", desk.EYE)
        assert desk.drive("text", desk.PASSWORD) == "qqqqwwww"
