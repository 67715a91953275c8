<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="165">
        <source>Delete the group "%s" ...</source>
        <translation></translation>
    </message>
    <message id="166">
        <source>Delete this tag ...</source>
        <translation></translation>
    </message>
    <message id="167">
        <source>Remove tags from the selected files ...</source>
        <translation></translation>
    </message>
    <message id="168">
        <source>Remove several groups ...</source>
        <translation></translation>
    </message>
    <message id="224">
        <source>No file is ticked.</source>
        <translation></translation>
    </message>
    <message id="225">
        <source>Type the arguments first.</source>
        <translation></translation>
    </message>
    <message id="234">
        <source>Size of the folder</source>
        <translation></translation>
    </message>
    <message id="247">
        <source>Go to the list</source>
        <translation></translation>
    </message>
    <message id="264">
        <source>Unspecified</source>
        <translation></translation>
    </message>
    <message id="265">
        <source>Done. ExifTool had nothing to report.</source>
        <translation></translation>
    </message>
    <message id="360">
        <source>Folder</source>
        <translation></translation>
    </message>
    <message id="361">
        <source>Other</source>
        <translation></translation>
    </message>
    <message id="461">
        <source>Tag</source>
        <translation></translation>
    </message>
    <message id="474">
        <source>Value</source>
        <translation></translation>
    </message>
    <message id="478">
        <source>Value</source>
        <translation></translation>
    </message>
    <message id="480">
        <source>Group</source>
        <translation></translation>
    </message>
    <message id="481">
        <source>Group</source>
        <translation></translation>
    </message>
    <message id="809">
        <source>selected</source>
        <translation></translation>
    </message>
    <message id="810">
        <source>free</source>
        <translation></translation>
    </message>
    <message id="900">
        <source>File</source>
        <translation></translation>
    </message>
    <message id="902">
        <source>Files</source>
        <translation></translation>
    </message>
    <message id="905">
        <source>Size</source>
        <translation></translation>
    </message>
    <message id="907">
        <source>Folders</source>
        <translation></translation>
    </message>
    <message id="938">
        <source>File with tags:</source>
        <translation></translation>
    </message>
    <message id="939">
        <source>item</source>
        <translation></translation>
    </message>
    <message id="940">
        <source>items</source>
        <translation></translation>
    </message>
    <message id="1829">
        <source>Add tags to this group ...</source>
        <translation></translation>
    </message>
    <message id="1830">
        <source>Remove tags of this group ...</source>
        <translation></translation>
    </message>
    <message id="1831">
        <source>Delete this group ...</source>
        <translation></translation>
    </message>
    <message id="2049">
        <source>Rating:</source>
        <translation></translation>
    </message>
    <message id="2050">
        <source>Kind</source>
        <translation></translation>
    </message>
    <message id="2118">
        <source>Computer</source>
        <translation></translation>
    </message>
    <message id="2119">
        <source>Trash</source>
        <translation></translation>
    </message>
    <message id="2154">
        <source>Choose the destination folder</source>
        <translation></translation>
    </message>
    <message id="2182">
        <source>Choose a file with tags</source>
        <translation></translation>
    </message>
    <message id="5037">
        <source>Select none</source>
        <translation></translation>
    </message>
    <message id="5052">
        <source>Invert selection</source>
        <translation></translation>
    </message>
    <message id="8003">
        <source>Clear the panel</source>
        <translation></translation>
    </message>
    <message id="8056">
        <source>Read again</source>
        <translation></translation>
    </message>
    <message id="8175">
        <source>folder selected</source>
        <translation></translation>
    </message>
    <message id="8176">
        <source>folders selected</source>
        <translation></translation>
    </message>
    <message id="8177">
        <source>file selected</source>
        <translation></translation>
    </message>
    <message id="8178">
        <source>files selected</source>
        <translation></translation>
    </message>
    <message id="8183">
        <source>items</source>
        <translation></translation>
    </message>
    <message id="40012">
        <source>Open</source>
        <translation></translation>
    </message>
    <message id="40076">
        <source>Select none</source>
        <translation></translation>
    </message>
    <message id="40107">
        <source>Refresh</source>
        <translation></translation>
    </message>
    <message id="40115">
        <source>Back</source>
        <translation></translation>
    </message>
    <message id="40116">
        <source>Forward</source>
        <translation></translation>
    </message>
    <message id="40117">
        <source>Up</source>
        <translation></translation>
    </message>
    <message id="70501">
        <source>Click a file to read its tags</source>
        <translation></translation>
    </message>
    <message id="70502">
        <source>This folder is empty</source>
        <translation></translation>
    </message>
    <message id="70503">
        <source>Metadata</source>
        <translation></translation>
    </message>
    <message id="70504">
        <source>Map</source>
        <translation></translation>
    </message>
    <message id="70505">
        <source>Hex dump</source>
        <translation></translation>
    </message>
    <message id="70506">
        <source>Help</source>
        <translation></translation>
    </message>
    <message id="70507">
        <source>Folders</source>
        <translation></translation>
    </message>
    <message id="70508">
        <source>Type a folder and press Enter</source>
        <translation></translation>
    </message>
    <message id="70509">
        <source>The folder %s cannot be read: %s</source>
        <translation></translation>
    </message>
    <message id="70510">
        <source>Select a file first.</source>
        <translation></translation>
    </message>
    <message id="70511">
        <source>ExifTool found no tags that this panel shows</source>
        <translation></translation>
    </message>
    <message id="70512">
        <source>Copy</source>
        <translation></translation>
    </message>
    <message id="70513">
        <source>The settings could not be saved: %s</source>
        <translation></translation>
    </message>
    <message id="70514">
        <source>Version %s</source>
        <translation></translation>
    </message>
    <message id="70515">
        <source>ExifTool: %s</source>
        <translation></translation>
    </message>
    <message id="70516">
        <source>Expand all groups</source>
        <translation></translation>
    </message>
    <message id="70517">
        <source>Collapse all groups</source>
        <translation></translation>
    </message>
    <message id="70518">
        <source>The folder %s is gone.</source>
        <translation></translation>
    </message>
    <message id="70520">
        <source>The folder %s cannot be written.
Tagwright cannot work without it.</source>
        <translation></translation>
    </message>
    <message id="70521">
        <source>No program is set up to open %s.</source>
        <translation></translation>
    </message>
</context>
</TS>
