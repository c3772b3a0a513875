"""Has a request stop right before it writes, inside WordPress, until the test lets it go on."""

import contextlib
import os
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from wordpress import WORLD_DIR

SECONDS = 60
HEADER = {"X-Hold": "write"}

# Runs in every request; only one that carries the header stops, when its first write to the record comes, and tells its
# process.
HOLD = """
    add_filter( 'query', function ( $sql ) {
        static $held = false;
        $folder = getenv( 'WORLD_DIR' ) . '/hold';
        $writes = 0 === strpos( $sql, 'UPDATE' ) || 0 === strpos( $sql, 'INSERT' );
        if ( ! $held && isset( $_SERVER['HTTP_X_HOLD'] ) && $writes && strpos( $sql, "'brasslet_record'" ) ) {
            $held = true;
            file_put_contents( "$folder/writing", getmypid() );
            rename( "$folder/writing", "$folder/held" );
            while ( ! file_exists( "$folder/go" ) ) {
                usleep( 5000 );
                clearstatcache();
            }
        }
        static $looks = 0;
        // Who sees the lock a second time has found it taken.
        if ( ! $held && 0 === strpos( $sql, 'SELECT' ) && strpos( $sql, "'brasslet_record.lock'" ) && ++$looks > 1 ) {
            touch( "$folder/waiting" );
        }
        return $sql;
    } );
"""


class Held:
    """A request that has stopped. Its reply comes once it was let go."""

    def __init__(self, folder, reply):
        self._folder = folder
        self._reply = reply
        self.process = int((folder / "held").read_text())

    def wait_until_another_waits(self):
        wait_for(self._folder / "waiting", self._reply)

    def let_go(self):
        (self._folder / "go").touch()
        return self.reply()

    def reply(self):
        return self._reply.result(SECONDS)


def wait_for(file, reply):
    limit = time.monotonic() + SECONDS
    while not file.exists():
        assert not reply.done(), reply.result().text
        assert time.monotonic() < limit, f"There is no {file}."
        time.sleep(0.01)


@contextlib.contextmanager
def held(site, send):
    """`send` is given the headers of a request that stops; the request goes on at the end in any case."""
    site.hook(HOLD)
    folder = Path(WORLD_DIR) / "hold"
    folder.mkdir()
    with ThreadPoolExecutor() as others:
        reply = others.submit(send, HEADER)
        try:
            wait_for(folder / "held", reply)
            yield Held(folder, reply)
        finally:
            (folder / "go").touch()
            reply.exception(SECONDS)
            site.hook("")
            for name in os.listdir(folder):
                (folder / name).unlink()
            folder.rmdir()
