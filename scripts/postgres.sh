#!/usr/bin/env bash
# A throw-away PostgreSQL cluster for the tests and the benchmark.
#
#   postgres.sh start DIR   creates a cluster in DIR, starts it on 127.0.0.1 on a free port with
#                           a database and a password role of its own, and writes DIR/env:
#                             export TABULON_PG_URI=postgresql://tabulon@127.0.0.1:PORT/tabulon
#                             export TABULON_PG_PASSWORD=...
#   postgres.sh stop DIR    stops that cluster, whatever state it is in, and removes DIR.
#
# The server listens on loopback only, with password (SCRAM) authentication for TCP; its Unix
# socket lives in DIR (closed to other users) and admits the cluster's superuser alone, for the
# set-up steps here.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)

usage() {
  echo "usage: $0 start DIR | stop DIR" >&2
  exit 2
}

[ $# -eq 2 ] || usage
command=$1
dir=$2

# The server refuses to run as root: as root every server program runs as the postgres user.
as_server() {
  if [ "$(id -u)" -eq 0 ]; then
    runuser -u postgres -- "$@"
  else
    "$@"
  fi
}

find_bindir() {
  local initdb
  initdb=$(ls -d /usr/lib/postgresql/*/bin/initdb 2>/dev/null | sort -V | tail -n 1 || true)
  [ -n "$initdb" ] && dirname "$initdb"
}

random_text() {
  # Letters and digits only: the values go into a URI and a shell file unquoted.
  LC_ALL=C tr -dc 'A-Za-z0-9' </dev/urandom | head -c "$1" || true
}

port_is_free() {
  ! (exec 3<>"/dev/tcp/127.0.0.1/$1") 2>/dev/null
}

start() {
  bindir=$(find_bindir || true)
  if [ -z "$bindir" ]; then
    "$root/scripts/setup.sh"
    bindir=$(find_bindir || true)
  fi
  if [ -z "$bindir" ]; then
    echo "postgres.sh: no PostgreSQL server programs found after setup" >&2
    exit 1
  fi

  mkdir -p "$dir"
  dir=$(cd "$dir" && pwd)
  if [ -e "$dir/data" ]; then
    echo "postgres.sh: $dir already holds a cluster" >&2
    exit 1
  fi
  if [ "$(id -u)" -eq 0 ]; then
    chown postgres: "$dir"
    if ! runuser -u postgres -- test -w "$dir"; then
      echo "postgres.sh: the postgres user cannot write $dir (a folder above it is closed)" >&2
      exit 1
    fi
  fi
  chmod 700 "$dir"

  local superpw userpw
  superpw=$(random_text 24)
  userpw=$(random_text 24)
  as_server sh -c 'umask 077; cat > "$1"' sh "$dir/superpw" <<<"$superpw"
  as_server "$bindir/initdb" -D "$dir/data" -U postgres --pwfile="$dir/superpw" -E UTF8 --locale=C.UTF-8 \
    --auth-local=trust --auth-host=scram-sha-256 --no-sync >"$dir/initdb.log" 2>&1 || {
    cat "$dir/initdb.log" >&2
    exit 1
  }
  rm -f "$dir/superpw"
  # The socket lives in DIR, which only the server's user may enter: through it the cluster's
  # superuser does the set-up below. Everything else comes over TCP with a password.
  as_server sh -c 'cat > "$1"' sh "$dir/data/pg_hba.conf" <<EOF
local all postgres trust
host  all all 127.0.0.1/32 scram-sha-256
EOF

  local port="" attempt
  for attempt in 1 2 3 4 5 6 7 8; do
    port=$(( 20000 + (RANDOM * 32768 + RANDOM) % 40000 ))
    port_is_free "$port" || continue
    if as_server "$bindir/pg_ctl" -D "$dir/data" -l "$dir/server.log" -w -t 60 \
      -o "-c listen_addresses=127.0.0.1 -c port=$port -c unix_socket_directories=$dir -c fsync=off \
-c synchronous_commit=off -c full_page_writes=off -c max_connections=60" start >/dev/null; then
      break
    fi
    port=""
  done
  if [ -z "$port" ]; then
    echo "postgres.sh: the server did not start" >&2
    tail -n 20 "$dir/server.log" >&2 || true
    exit 1
  fi

  as_server "$bindir/psql" -X -q -v ON_ERROR_STOP=1 -h "$dir" -p "$port" -U postgres -d postgres <<EOF
CREATE ROLE tabulon LOGIN CREATEROLE PASSWORD '$userpw';
CREATE DATABASE tabulon OWNER tabulon;
EOF
  as_server "$bindir/psql" -X -q -v ON_ERROR_STOP=1 -h "$dir" -p "$port" -U postgres -d tabulon <<EOF
ALTER SCHEMA public OWNER TO tabulon;
EOF

  cat >"$dir/env" <<EOF
export TABULON_PG_URI=postgresql://tabulon@127.0.0.1:$port/tabulon
export TABULON_PG_PASSWORD=$userpw
EOF
  echo "postgres.sh: server on 127.0.0.1:$port, database tabulon, role tabulon (password in $dir/env)"
}

stop() {
  [ -e "$dir" ] || return 0
  bindir=$(find_bindir || true)
  if [ -f "$dir/data/postmaster.pid" ]; then
    if [ -n "$bindir" ]; then
      as_server "$bindir/pg_ctl" -D "$dir/data" -m immediate -w -t 30 stop >/dev/null 2>&1 || true
    fi
    # Still there (no programs, or the stop failed): end the server this script started.
    if [ -f "$dir/data/postmaster.pid" ]; then
      local pid
      pid=$(head -n 1 "$dir/data/postmaster.pid" 2>/dev/null || true)
      if [[ "$pid" =~ ^[0-9]+$ ]] && kill -0 "$pid" 2>/dev/null; then
        kill -QUIT "$pid" 2>/dev/null || true
        for _ in $(seq 50); do
          kill -0 "$pid" 2>/dev/null || break
          sleep 0.1
        done
        kill -KILL "$pid" 2>/dev/null || true
      fi
    fi
  fi
  rm -rf "$dir"
}

case "$command" in
  start) start ;;
  stop) stop ;;
  *) usage ;;
esac
