"""Public paymail clients, run as the wallets that they are in: their own code, their own name resolution, real TLS."""

import json
import os
import subprocess
from pathlib import Path

HERE = Path(__file__).parent
INSTALLED = HERE.parents[1] / ".deps" / "paymail-clients" / "node_modules"


def ask(client, paymail, *more):
    """What the client found about the paymail, or its complaint as "error"."""
    env = {**os.environ, "NODE_PATH": str(INSTALLED), "NODE_EXTRA_CA_CERTS": os.environ["WORLD_CA"]}
    command = ["node", HERE / "clients" / f"{client}.cjs", paymail, *more]
    done = subprocess.run(command, env=env, check=True, capture_output=True, text=True, timeout=60)
    return json.loads(done.stdout)
