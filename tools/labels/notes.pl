#!/usr/bin/perl
# Prints the notes that ExifTool's tables hold on tags and `exiftool -listx` leaves out: table, tag id, name, note.

use strict;
use warnings;
use Image::ExifTool;

binmode STDOUT, ':encoding(UTF-8)';
Image::ExifTool::LoadAllTables();
foreach my $table_name (sort keys %Image::ExifTool::allTables) {
    my $table = Image::ExifTool::GetTagTable($table_name);
    next unless ref $table eq 'HASH' and $$table{SHORT_NAME};
    foreach my $id (sort(Image::ExifTool::TagTableKeys($table))) {
        next if $id =~ /[^\x20-\x7e]/;
        foreach my $tag (Image::ExifTool::GetTagInfoList($table, $id)) {
            my $note = $$tag{Notes};
            next unless defined $note;
            $note =~ s/\s+/ /g;
            print join("\t", $$table{SHORT_NAME}, $id, $$tag{Name}, $note), "\n";
        }
    }
}
