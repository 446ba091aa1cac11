"""run.py PROGRAM FOLDER [SCENARIO...]: runs all scenarios, or the named ones. The files of a failed
scenario stay in the folder, with a picture of the display."""

import shutil
import subprocess
import sys
import traceback
from pathlib import Path

sys.dont_write_bytecode = True
import scenarios
from person import Person


def passes(scenario, program, home):
    shutil.rmtree(home, ignore_errors=True)
    home.mkdir(parents=True)
    person = Person(program, home)
    try:
        scenario(person)
        if person.process.poll() is None:
            person.ends()
    except Exception:
        subprocess.run(["import", "-window", "root", home / "display.png"], check=False)
        print(f"FAILED: {scenario.__name__}, see {home}")
        traceback.print_exc(limit=-4)
        return False
    finally:
        person.leaves()
    shutil.rmtree(home)
    return True


def main(program, folder, *names):
    wanted = [getattr(scenarios, name) for name in names] or scenarios.SCENARIOS
    program, folder = Path(program).resolve(), Path(folder).resolve()
    passed = sum(passes(scenario, program, folder / scenario.__name__) for scenario in wanted)
    print(f"{passed} passed, {len(wanted) - passed} failed")
    return passed < len(wanted)


sys.exit(main(*sys.argv[1:]))
