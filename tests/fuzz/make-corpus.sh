#!/usr/bin/env bash
# Writes the seed corpora of the fuzz targets into tests/fuzz/corpus/: small
# real files made by the ffmpeg command line and the library fixture of
# tests/data. Targets that go by the file's extension read it from the first
# byte of each input (see each fuzz_*.cpp); the seeds carry that byte.
# Run it again after changing a target's extension table.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
out="$here/corpus"
tmp=$(mktemp -d)
trap 'rm -rf "$tmp"' EXIT
ff() { ffmpeg -nostdin -v error -y "$@"; }
# seed DIR NAME BYTE FILE: the selector byte followed by the file.
seed() { mkdir -p "$out/$1"; { printf "\\x$3"; cat "$4"; } > "$out/$1/$2"; }

rm -rf "$out"
mkdir -p "$out"/{xmllibrary,playlistfile,mediafile,waveheader,mediaprobe,updatereply}

# --- library XML
cp "$here/../data/library-kinds.xml" "$out/xmllibrary/library-kinds.xml"
cat > "$out/xmllibrary/minimal.xml" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<plist version="1.0">
<dict>
	<key>Music Folder</key><string>file:///home/u/Music/</string>
	<key>Tracks</key>
	<dict>
		<key>1</key><dict><key>Track ID</key><integer>1</integer><key>Name</key><string>A &lt;b&gt;</string><key>Location</key><string>file:///home/u/Music/a%20b.mp3</string></dict>
	</dict>
	<key>Playlists</key>
	<array>
		<dict><key>Name</key><string>Ringtones</string><key>Distinguished Kind</key><integer>55</integer><key>Playlist Items</key><array><dict><key>Track ID</key><integer>1</integer></dict></array></dict>
		<dict><key>Name</key><string>Folder</string><key>Folder</key><true/><key>Playlist Persistent ID</key><string>AA</string></dict>
		<dict><key>Name</key><string>Inner</string><key>Parent Persistent ID</key><string>AA</string><key>Playlist Persistent ID</key><string>BB</string><key>Playlist Items</key><array><dict><key>Track ID</key><integer>1</integer></dict></array></dict>
	</array>
</dict>
</plist>
XML

# --- playlists: byte 0 .m3u, 1 .m3u8, 2 .pls, 3 .xspf
printf '#EXTM3U\n#EXTINF:123,Artist - Title\n../Music/a.mp3\r\nfile:///home/u/b%%20c.flac\nhttp://radio.example/stream\nC:\\Music\\d.mp3\n' > "$tmp/l.m3u"
seed playlistfile m3u 00 "$tmp/l.m3u"
printf '\xef\xbb\xbf#EXTM3U\n/home/u/Musik/\xc3\xa4rger.mp3\nrelative/\xe6\x97\xa5\xe6\x9c\xac.ogg\n' > "$tmp/l.m3u8"
seed playlistfile m3u8 01 "$tmp/l.m3u8"
printf '[playlist]\nNumberOfEntries=3\nFile2=/home/u/two.mp3\nFile1=one.mp3\nTitle1=One\nFile10=file:///ten.mp3\nVersion=2\n' > "$tmp/l.pls"
seed playlistfile pls 02 "$tmp/l.pls"
cat > "$tmp/l.xspf" <<'XML'
<?xml version="1.0" encoding="UTF-8"?>
<playlist version="1" xmlns="http://xspf.org/ns/0/">
  <title>Road &amp; Trip</title>
  <trackList>
    <track><location>file:///home/u/Music/a%20b.mp3</location><title>A</title></track>
    <track><location>songs/c.ogg</location></track>
    <track><location>https://example.com/x.mp3</location></track>
  </trackList>
</playlist>
XML
seed playlistfile xspf 03 "$tmp/l.xspf"

# --- media files (tags, pictures, MPEG-4 boxes)
ff -f lavfi -i color=c=red:s=16x16:d=0.1 -frames:v 1 "$tmp/cover.jpg"
ff -f lavfi -i testsrc=size=32x24:rate=5:duration=0.4 -f lavfi -i sine=frequency=440:duration=0.4 \
   -c:v libx264 -preset ultrafast -pix_fmt yuv420p -c:a aac -b:a 24k -ac 1 -ar 16000 -shortest "$tmp/clip.mp4"
ff -f lavfi -i sine=frequency=440:duration=0.3 -i "$tmp/cover.jpg" -map 0 -map 1 -c:a aac -b:a 24k \
   -ac 1 -ar 16000 -c:v copy -disposition:v attached_pic -metadata title="Cover Song" \
   -metadata artist=Someone -metadata album=Somewhere "$tmp/song.m4a"
ff -f lavfi -i sine=frequency=880:duration=0.3 -c:a aac -b:a 24k -ac 1 -ar 16000 -f ipod "$tmp/tone.m4r"
ff -f lavfi -i sine=frequency=440:duration=0.3 -i "$tmp/cover.jpg" -map 0 -map 1 -c:a libmp3lame \
   -b:a 32k -ar 16000 -c:v copy -id3v2_version 3 -metadata title=T -metadata artist=A \
   -metadata album=B "$tmp/song.mp3"
ff -f lavfi -i sine=frequency=440:duration=0.2 -ar 8000 -metadata title=Flac -c:a flac "$tmp/song.flac"
ff -f lavfi -i sine=frequency=440:duration=0.3 -ar 8000 -c:a libvorbis -metadata title=Ogg "$tmp/song.ogg"
seed mediafile clip.mp4 00 "$tmp/clip.mp4"
seed mediafile clip.m4v 01 "$tmp/clip.mp4"
seed mediafile song.m4a 02 "$tmp/song.m4a"
seed mediafile tone.m4r 03 "$tmp/tone.m4r"
seed mediafile song.mp3 05 "$tmp/song.mp3"
seed mediafile song.flac 06 "$tmp/song.flac"
seed mediafile song.ogg 07 "$tmp/song.ogg"

# --- WAV files for the engine's reader (a canonical 44-byte header)
wav() { ff -f lavfi -i "sine=frequency=300:duration=$1" -ar "$2" -ac "$3" -c:a "$4" -bitexact \
          -fflags +bitexact -map_metadata -1 "$out/waveheader/$5"; }
wav 2.6 600 2 pcm_s16le s16-stereo.wav
wav 5.2 500 1 pcm_s16le s16-mono.wav
wav 11 100 1 pcm_u8 u8-mono.wav
wav 6 100 2 pcm_u8 u8-stereo.wav
wav 1 600 2 pcm_s24le s24-stereo.wav
head -c 40 "$out/waveheader/s16-stereo.wav" > "$out/waveheader/short-header.wav"

# --- media probe: byte 0 .mp3, 1 .mp4, 2 .wav, 3 .ogg, 4 .flac, 5 .mkv, 6 .aac, 7 .bin
ff -f lavfi -i sine=frequency=440:duration=0.2 -c:a aac -b:a 24k -ac 1 -ar 16000 -f adts "$tmp/a.aac"
ff -f lavfi -i testsrc=size=16x16:rate=5:duration=0.4 -c:v libvpx-vp9 -deadline realtime "$tmp/v.mkv"
seed mediaprobe song.mp3 00 "$tmp/song.mp3"
seed mediaprobe clip.mp4 01 "$tmp/clip.mp4"
seed mediaprobe wave.wav 02 "$out/waveheader/s16-stereo.wav"
seed mediaprobe song.ogg 03 "$tmp/song.ogg"
seed mediaprobe song.flac 04 "$tmp/song.flac"
seed mediaprobe video.mkv 05 "$tmp/v.mkv"
seed mediaprobe adts.aac 06 "$tmp/a.aac"
printf 'not media at all\n' > "$tmp/t.bin"
seed mediaprobe text.bin 07 "$tmp/t.bin"

# --- update service replies
reply() {
  printf '<?xml version="1.0" encoding="utf-8"?>\n<upd:ProductInfo xmlns:upd="http://update.example/schema">\n'
  printf '  <upd:ProductCode>%s</upd:ProductCode>\n  <upd:ProductDisplayName>Tonewright</upd:ProductDisplayName>\n' "$1"
  printf '  <upd:ProductVer>%s</upd:ProductVer>\n  <upd:ProductState>release</upd:ProductState>\n' "$2"
  printf '  <upd:DownloadURL>http://downloads.example/tw.dmg</upd:DownloadURL>\n'
  printf '  <upd:WhatsNew><upd:Format>html</upd:Format><upd:Description>%s</upd:Description></upd:WhatsNew>\n' "$3"
  printf '</upd:ProductInfo>\n'
}
reply TW-01 1.5.0 "$(printf '<b>Faster</b> fades, \xc3\xa9t\xc3\xa9' | base64 -w0)" > "$out/updatereply/newer.xml"
reply TW-01 1.4.0 "" > "$out/updatereply/same.xml"
reply "" 2.0 "eA==" > "$out/updatereply/unknown.xml"
reply TW-01 1.4.0.1 "$(printf 'a\0b' | base64 -w0)" > "$out/updatereply/zero-byte.xml"
printf '<html><body>Service down' > "$out/updatereply/not-xml.txt"

du -sh "$out"/*
