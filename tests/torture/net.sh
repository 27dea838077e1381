#!/bin/sh
# Runs torture_net, and QSettings beside it, over two mounts of drives that machines share: a GlusterFS volume, the
# same while the client of one mount is killed, and a directory mounted twice by sshfs. All of it lives in namespaces of
# its own (network, mounts, processes) and on a disk in memory, and is gone at the end.
#
#   net.sh DIRECTORY_OF_THE_PROGRAMS SECONDS
set -eu

skip() { echo "torture-net: skipped, as $*"; exit 0; }

if [ "${VX_NET_INSIDE:-}" != 1 ]; then
  [ "$(id -u)" = 0 ] || skip "mounting needs root"
  [ -c /dev/fuse ] || skip "there is no /dev/fuse"
  for program in unshare ip glusterd glusterfs gluster sshfs; do
    command -v "$program" >/dev/null || skip "$program is missing"
  done
  unshare -n -m -p --fork --mount-proc true 2>/dev/null || skip "namespaces are not allowed"
  VX_NET_INSIDE=1 exec unshare -n -m -p --fork --kill-child --mount-proc sh "$0" "$@"
fi

programs=$1
seconds=$2
root=$(mktemp -d)
address=10.77.0.1
mount --make-rprivate /
mount -t tmpfs tmpfs "$root"
trap 'umount -l "$root"; rmdir "$root"' EXIT
ip link set lo up
ip addr add $address/24 dev lo
for part in lib log brick m1 m2 shared s1 s2; do mkdir "$root/$part"; done
mkdir -p /var/lib/glusterd /var/log/glusterfs
mount -t tmpfs tmpfs /run  # the daemon is found by a socket there
mkdir /run/gluster
mount --bind "$root/lib" /var/lib/glusterd
mount --bind "$root/log" /var/log/glusterfs

failed=
run() { "$@" || failed="$failed ${2:-}"; }
both() {  # both NAME MOUNT1 MOUNT2 [KILL]
  name=$1 first=$2 second=$3
  shift 3
  mkdir -p "$first/ours" "$first/peer"
  run "$programs/torture_net" "$name" "$seconds" "$first/ours" "$second/ours" "$@"
  rm -rf "$first/ours"
  [ $# -eq 0 ] || return 0
  if [ -x "$programs/qsettings_peer" ]; then
    run "$programs/qsettings_peer" "$name" "$seconds" "$first/peer" "$second/peer"
  else
    echo "torture-net: $name: QSettings was not measured, as Qt is missing"
  fi
}

gluster_volume() {
  glusterd --log-level WARNING
  for _ in $(seq 40); do gluster volume info >/dev/null 2>&1 && break; sleep 0.5; done
  gluster --mode=script volume create v "$address:$root/brick/b" force >/dev/null &&
    gluster --mode=script volume start v >/dev/null
}
cat >"$root/mount" <<MOUNT
#!/bin/sh
exec glusterfs --volfile-server=$address --volfile-id=v --pid-file="$root/m\$1.pid" "$root/m\$1"
MOUNT
cat >"$root/kill" <<KILL
#!/bin/sh
kill -9 "\$(cat "$root/m2.pid")"
sleep 0.2
umount -l "$root/m2"
exec sh "$root/mount" 2
KILL
if gluster_volume && sh "$root/mount" 1 && sh "$root/mount" 2; then
  both glusterfs "$root/m1" "$root/m2"
  both glusterfs-killed "$root/m1" "$root/m2" "sh $root/kill"
else
  echo "torture-net: glusterfs: skipped, as the volume can't be made"
fi

sftp=
for place in /usr/lib/openssh /usr/libexec/openssh /usr/lib/ssh /usr/libexec; do
  [ ! -x $place/sftp-server ] || sftp=$place/sftp-server
done
printf '#!/bin/sh\nexec %s\n' "$sftp" >"$root/serve"
chmod +x "$root/serve"
mounted=1
for n in 1 2; do sshfs -o ssh_command="$root/serve" "x:$root/shared" "$root/s$n" || mounted=; done
if [ -n "$sftp" ] && [ -n "$mounted" ]; then
  both sshfs "$root/s1" "$root/s2"
else
  echo "torture-net: sshfs: skipped, as the directory can't be mounted"
fi
for mount in m1 m2 s1 s2; do umount -l "$root/$mount" 2>/dev/null || true; done
[ -z "$failed" ] || { echo "torture-net: FAILED:$failed"; exit 1; }
