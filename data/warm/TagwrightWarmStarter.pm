# The warm starter: a process that has compiled ExifTool's script and the modules it may need, and forks one child
# for each command. It is started as
#
#     perl -w -I<folder> -MTagwrightWarmStarter=<language> <path of exiftool>
#
# so that ExifTool's script is the main program, as in a run of its own. Before the script's first statement the
# process stops in an INIT block and serves; a child leaves that block and runs the script with the arguments of its
# command. The other end is exiftool/WarmStarter.cpp.
#
# Standard input: requests. Each is its length and as many bytes, which are fields, each its length and as many
# bytes; lengths are 32-bit numbers of this machine. The fields, numbers in decimal:
#
#     process id of the asker, working folder, umask,
#     then four descriptors of the asker: status, go, output, errors; each as its number, device and inode;
#     "1" when the output is appended to, "1" when the errors are,
#     the arguments
#
# The asker's descriptors are opened anew by way of /proc; device and inode tell whether they still are what they
# were. The status pipe gets "R" and the child's process id when the child stands ready, or "X" when it cannot be
# made, and in the end "E" and the child's wait status: from the child itself when it has done all, else from this
# process when the child is gone. The child runs when the go pipe gives it a byte, and ends when
# that gives it an end of file, so that an asker who has lost patience can be sure that nothing runs.
#
# Standard output: "ready", a line feed, and as fields the files whose change makes this process stale; then its end.
# Whatever else the loading prints, there or as a warning, tells the asker that these commands are better run on their
# own.
#
# A module that is loaded early must not be noticed. Some modules register composite tags when they are loaded, and
# the order of the loading shows in the output. Here they register nothing: what they would have done is noted, and
# is done in the child at the moment at which the script would have loaded them.
package TagwrightWarmStarter;

use strict;
use warnings;
use Fcntl qw(O_RDONLY O_WRONLY O_APPEND O_NONBLOCK O_NOCTTY);
use IO::Handle ();
use POSIX ();

# Only for making ExifTool's documents.
my %neverLoaded = map { ("Image/ExifTool/$_" => 1) } qw(BuildTagLookup.pm TagInfoXML.pm);

# What ExifTool loads when a file asks for it.
my @libraries =
    qw(Compress::Zlib Digest::MD5 Digest::SHA Encode Fcntl File::Spec IO::File List::Util POSIX Time::Local);

# Tables that most photos or most writes need, made ready before the fork. Nothing is registered by that.
my @tables = map { "Image::ExifTool::$_" } qw(
    Extra JPEG::Main JPEG::SOF JFIF::Main GPS::Main PrintIM::Main Photoshop::Main PNG::Main PNG::TextualData
    ICC_Profile::Main ICC_Profile::Header
    IPTC::Main IPTC::EnvelopeRecord IPTC::ApplicationRecord IPTC::NewsPhoto IPTC::PreObjectData IPTC::ObjectData
    IPTC::PostObjectData IPTC::FotoStation
    XMP::Main XMP::x XMP::rdf XMP::other XMP::dc XMP::xmp XMP::xmpRights XMP::xmpMM XMP::photoshop XMP::iptcCore
    XMP::iptcExt XMP::aux XMP::exif XMP::tiff XMP::pdf XMP::Lightroom XMP::crs
    QuickTime::ItemList QuickTime::UserData QuickTime::Keys MacOS::XAttr MacOS::MDItem PDF::Info PostScript::Main
    MIE::Doc XMP::acdsee
    Canon::Main Canon::CameraSettings Canon::ShotInfo Nikon::Main Sony::Main Olympus::Main FujiFilm::Main
    Panasonic::Main Pentax::Main);

my $language = 'en';
my $isLoading = 1;
my $isServing = 1;

# For each module file that was loaded early: what its loading does, in order, as [load => file] or
# [composite => arguments].
my %deeds;
my @loading;
my %fileOfModule;
my $addCompositeTags;

# Descriptors that are open for as long as the process lives.
my ($aliveEnd, $statusEnd);
my @keptFragments;

sub import {
    my ($class, $wanted) = @_;
    if (defined $wanted and $wanted =~ /^[\w-]+$/) { ($language = lc $wanted) =~ tr/-/_/ }
    # The folder was only for finding this file.
    (my $folder = __FILE__) =~ s{/[^/]*$}{};
    @INC = grep { $_ ne $folder } @INC;
}

INIT { serve() }

END {
    # Nobody needs the memory of a run that is over given back piece by piece. What perl itself does at its end with
    # output that cannot be written is done here.
    my $status = $?;
    unless ($isServing) {
        if (defined fileno(STDOUT) and not IO::Handle::flush(*STDOUT{IO})) {
            print STDERR "Unable to flush stdout: $!\n" if $!;
            $status ||= 1;
        }
        # It cannot succeed; it writes out all other files.
        no warnings;
        exec { '' } '';
        # All has been done; the asker need not wait until the memory has been given back.
        syswrite($statusEnd, 'E' . pack('L', $status << 8)) if $statusEnd;
    }
    POSIX::_exit($status);
}

# ---- Loading ----

# In front of @INC: every loading of a module that is not known to %INC passes here.
sub noteOrWake {
    my ($self, $file) = @_;
    return unless $file =~ m{^Image/ExifTool/} and not $neverLoaded{$file};
    if (not $isLoading) {
        return unless $deeds{$file};
        wake($file);
        return \ '1;';
    }
    return if @loading and $loading[-1] eq $file;
    push @{$deeds{$loading[-1]}}, [load => $file] if @loading;
    unless ($deeds{$file}) {
        $deeds{$file} = [];
        push @loading, $file;
        require $file;
        pop @loading;
    }
    # Forgotten at once, so that the next loading passes here too.
    return \ "delete \$INC{'$file'}; 1;";
}

sub wake {
    my $file = shift;
    foreach my $deed (@{$deeds{$file}}) {
        my ($kind, @arguments) = @$deed;
        if ($kind eq 'load') {
            require $arguments[0];
        } else {
            $addCompositeTags->(@arguments);
        }
    }
}

sub moduleFiles {
    (my $folder = $INC{'Image/ExifTool.pm'}) =~ s{\.pm$}{};
    opendir(my $listing, $folder) or return;
    my @files = map { "Image/ExifTool/$_" } sort grep { /^\w+\.p[ml]$/ } readdir $listing;
    return grep { not $INC{$_} and not $neverLoaded{$_} } @files, "Image/ExifTool/Charset/Latin.pm",
        $language eq 'en' ? () : "Image/ExifTool/Lang/$language.pm";
}

sub loadEarly {
    foreach my $library (@libraries) { eval "require $library" }
    $addCompositeTags = \&Image::ExifTool::AddCompositeTags;
    # Before the modules import it.
    wakeWithTables();
    {
        no warnings 'redefine';
        local *Image::ExifTool::AddCompositeTags = sub ($;$) {
            push @{$deeds{$loading[-1]}}, [composite => @_];
        };
        unshift @INC, \&noteOrWake;
        foreach my $file (moduleFiles()) {
            # One that cannot be loaded is left to the run that needs it.
            eval { require $file; 1 } or delete $deeds{$file};
            @loading = ();
        }
    }
    delete @INC{keys %deeds};
    foreach my $file (keys %deeds) {
        (my $module = $file) =~ s{/}{::}g;
        $fileOfModule{$module} = $file if $module =~ s/\.pm$//;
    }
    prepareTables();
    useUpFragments();
}

sub prepareTables {
    foreach my $table (@tables) {
        no strict 'refs';
        Image::ExifTool::GetTagTable($table) if %$table;
    }
    $isLoading = 0;
    # What every command begins with, and thus may register already here.
    Image::ExifTool->new;
}

# The small free pieces that the loading has left lie scattered over all memory. A child that used them would have to
# copy the page around each; it finds fresh memory instead.
sub useUpFragments {
    for my $i (1 .. 5000) {
        push @keptFragments, [$i], { $i => 1 }, \ (my $text = 'x' x ($i % 128)), \ (my $number = $i * 1.5);
    }
}

# The script loads a module also by asking for one of its tables while that is empty.
sub wakeWithTables {
    my $getTagTable = \&Image::ExifTool::GetTagTable;
    no warnings 'redefine';
    *Image::ExifTool::GetTagTable = sub ($) {
        if (defined $_[0] and $_[0] =~ /(.*)::/) {
            my $file = $fileOfModule{$1};
            require $file if $file and not $isLoading and not $INC{$file};
        }
        goto &$getTagTable;
    };
}

# ---- Serving ----

sub readFully {
    my ($handle, $length) = @_;
    my $bytes = '';
    while (length($bytes) < $length) {
        my $got = sysread($handle, $bytes, $length - length($bytes), length($bytes));
        next if not defined $got and $!{EINTR};
        return undef unless $got;
    }
    return $bytes;
}

# The asker's descriptor, opened anew; undef when it is no longer what it was.
sub openOf {
    my ($process, $number, $device, $inode, $flags) = @_;
    sysopen(my $handle, "/proc/$process/fd/$number", $flags | O_NOCTTY) or return undef;
    my ($nowDevice, $nowInode) = stat $handle;
    return $nowDevice == $device && $nowInode == $inode ? $handle : undef;
}

my %running;     # by the number of the alive pipe's descriptor: [pipe, process id, status pipe]
my $waiting;     # the child that will run the next command: {process, alive, requests}; made ahead, so that nobody
                 # waits for the fork

sub serve {
    # The script, its modules, and what a user's configuration has loaded.
    my @files = map { $INC{$_} } grep { $_ ne __PACKAGE__ . '.pm' } sort keys %INC;
    loadEarly();
    # An asker may be gone when it is told.
    local $SIG{PIPE} = 'IGNORE';
    syswrite(STDOUT, "ready\n" . pack('(L/a*)*', @files));
    foreach my $number (1, 2) { leadNowhere($number, '>') or POSIX::_exit(1) }
    for (;;) {
        return unless $waiting or forkAhead();
        my $wanted = '';
        vec($wanted, $_, 1) = 1 foreach 0, keys %running;
        next if select($wanted, undef, undef, undef) < 0;
        foreach my $number (grep { vec($wanted, $_, 1) } keys %running) { tellEnd($number) }
        next unless vec($wanted, 0, 1);
        my $length = readFully(\*STDIN, 4);
        my $request = defined $length ? readFully(\*STDIN, unpack('L', $length)) : undef;
        # The asker has ended; what still runs goes on to its end.
        POSIX::_exit(0) unless defined $request;
        handOver($length . $request);
    }
}

sub leadNowhere {
    my ($number, $mode) = @_;
    open(my $nowhere, $mode, '/dev/null') or return 0;
    return POSIX::dup2(fileno($nowhere), $number);
}

sub tellEnd {
    my $number = shift;
    my ($alive, $child, $status) = @{delete $running{$number}};
    waitpid($child, 0);
    syswrite($status, 'E' . pack('L', $?));
}

# False in the child, when it is to run.
sub forkAhead {
    my ($alive, $end, $requests, $child);
    $child = fork() if pipe($alive, $end) and pipe($requests, $waiting);
    if (not defined $child) {
        undef $waiting;
        return 1;
    }
    if ($child) {
        $waiting = { process => $child, alive => $alive, requests => $waiting };
        return 1;
    }
    POSIX::setpgid(0, 0);
    %running = ();
    $aliveEnd = $end;
    undef $waiting;
    close $alive;
    leadNowhere(0, '<') or POSIX::_exit(0);
    my $length = readFully($requests, 4);
    my $request = defined $length ? readFully($requests, unpack('L', $length)) : undef;
    POSIX::_exit(0) unless defined $request;
    becomeRun(unpack('(L/a*)*', $request));
    return 0;
}

sub handOver {
    my $request = shift;
    my ($process, undef, undef, @status) = unpack('(L/a*)*', substr($request, 4));
    my $status = openOf($process, @status[0 .. 2], O_WRONLY | O_NONBLOCK) or return;
    if (not $waiting) {
        syswrite($status, 'X');
        return;
    }
    $running{fileno($waiting->{alive})} = [$waiting->{alive}, $waiting->{process}, $status];
    my $written = 0;
    while ($written < length $request) {
        my $portion = syswrite($waiting->{requests}, $request, length($request) - $written, $written);
        last unless defined $portion or $!{EINTR};
        $written += $portion || 0;
    }
    undef $waiting;
}

# Gives the child what a run of its own would have been given. Returns when the script is to run.
sub becomeRun {
    my ($process, $folder, $mask, @rest) = @_;
    my $status = openOf($process, splice(@rest, 0, 3), O_WRONLY | O_NONBLOCK) or POSIX::_exit(0);
    my $go = openOf($process, splice(@rest, 0, 3), O_RDONLY | O_NONBLOCK);
    my @streams = splice(@rest, 0, 6);
    my @areAppended = splice(@rest, 0, 2);
    my $isReady = $go && takeStreams($process, \@streams, \@areAppended) && chdir $folder;
    syswrite($status, $isReady ? 'R' . pack('L', $$) : 'X');
    POSIX::_exit(0) unless $isReady and awaitByte($go);
    umask $mask;
    @ARGV = @rest;
    $statusEnd = $status;
    $isServing = 0;
    $! = 0;
    $^T = time;
    srand;
}

sub takeStreams {
    my ($process, $streams, $areAppended) = @_;
    foreach my $number (1, 2) {
        my @facts = splice(@$streams, 0, 3);
        my $append = $areAppended->[$number - 1] ? O_APPEND : 0;
        my $stream = openOf($process, @facts, O_WRONLY | $append) or return 0;
        POSIX::dup2(fileno($stream), $number) or return 0;
    }
    return 1;
}

sub awaitByte {
    my $handle = shift;
    my $wanted = '';
    vec($wanted, fileno($handle), 1) = 1;
    while (select(my $ready = $wanted, undef, undef, undef) < 0) { }
    return sysread($handle, my $byte, 1);
}

1;
