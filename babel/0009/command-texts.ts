<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- The texts of the ribbon. The sentence that the tool tip of text N says beside it has the number 100000 + N. -->
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="6">
        <source>Help</source>
        <translation></translation>
    </message>
    <message id="8">
        <source>Folders</source>
        <translation></translation>
    </message>
    <message id="9">
        <source>Status bar</source>
        <translation></translation>
    </message>
    <message id="10">
        <source>Quick view</source>
        <translation></translation>
    </message>
    <message id="12">
        <source>Details</source>
        <translation></translation>
    </message>
    <message id="13">
        <source>Tiles</source>
        <translation></translation>
    </message>
    <message id="14">
        <source>Thumbnails</source>
        <translation></translation>
    </message>
    <message id="15">
        <source>Jumbo</source>
        <translation></translation>
    </message>
    <message id="17">
        <source>Metadata</source>
        <translation></translation>
    </message>
    <message id="18">
        <source>GPS map</source>
        <translation></translation>
    </message>
    <message id="19">
        <source>Hex dump</source>
        <translation></translation>
    </message>
    <message id="20">
        <source>Help</source>
        <translation></translation>
    </message>
    <message id="22">
        <source>Modify EXIF</source>
        <translation></translation>
    </message>
    <message id="23">
        <source>IFD0 (image)</source>
        <translation></translation>
    </message>
    <message id="24">
        <source>IFD1 (thumbnail)</source>
        <translation></translation>
    </message>
    <message id="25">
        <source>IFD2</source>
        <translation></translation>
    </message>
    <message id="26">
        <source>InteropIFD</source>
        <translation></translation>
    </message>
    <message id="27">
        <source>SubIFD</source>
        <translation></translation>
    </message>
    <message id="28">
        <source>SubIFD1</source>
        <translation></translation>
    </message>
    <message id="29">
        <source>SubIFD2</source>
        <translation></translation>
    </message>
    <message id="30">
        <source>ExifIFD (photo)</source>
        <translation></translation>
    </message>
    <message id="31">
        <source>Modify IPTC</source>
        <translation></translation>
    </message>
    <message id="32">
        <source>Application record</source>
        <translation></translation>
    </message>
    <message id="33">
        <source>Envelope record</source>
        <translation></translation>
    </message>
    <message id="34">
        <source>NewsPhoto record</source>
        <translation></translation>
    </message>
    <message id="35">
        <source>Modify XMP</source>
        <translation></translation>
    </message>
    <message id="36">
        <source>XMP (all)</source>
        <translation></translation>
    </message>
    <message id="57">
        <source>XMP-aas</source>
        <translation></translation>
    </message>
    <message id="58">
        <source>XMP-acdsee</source>
        <translation></translation>
    </message>
    <message id="59">
        <source>XMP-album</source>
        <translation></translation>
    </message>
    <message id="60">
        <source>XMP-AnalogExif</source>
        <translation></translation>
    </message>
    <message id="61">
        <source>XMP-APDI</source>
        <translation></translation>
    </message>
    <message id="62">
        <source>XMP-AppleFI</source>
        <translation></translation>
    </message>
    <message id="63">
        <source>XMP-art</source>
        <translation></translation>
    </message>
    <message id="64">
        <source>XMP-attr</source>
        <translation></translation>
    </message>
    <message id="65">
        <source>XMP-aux</source>
        <translation></translation>
    </message>
    <message id="66">
        <source>XMP-xmpBJ</source>
        <translation></translation>
    </message>
    <message id="67">
        <source>XMP-Camera</source>
        <translation></translation>
    </message>
    <message id="68">
        <source>XMP-Camera_1_</source>
        <translation></translation>
    </message>
    <message id="69">
        <source>XMP-Cc</source>
        <translation></translation>
    </message>
    <message id="70">
        <source>XMP-Cell</source>
        <translation></translation>
    </message>
    <message id="71">
        <source>XMP-Claro</source>
        <translation></translation>
    </message>
    <message id="72">
        <source>XMP-Crd</source>
        <translation></translation>
    </message>
    <message id="73">
        <source>XMP-CreatorAtom</source>
        <translation></translation>
    </message>
    <message id="74">
        <source>XMP-crs</source>
        <translation></translation>
    </message>
    <message id="75">
        <source>XMP-dc</source>
        <translation></translation>
    </message>
    <message id="76">
        <source>XMP-DepthBlueEffect</source>
        <translation></translation>
    </message>
    <message id="77">
        <source>XMP-DepthData</source>
        <translation></translation>
    </message>
    <message id="78">
        <source>XMP-Dex</source>
        <translation></translation>
    </message>
    <message id="79">
        <source>XMP-Dicom</source>
        <translation></translation>
    </message>
    <message id="80">
        <source>XMP-Digikam</source>
        <translation></translation>
    </message>
    <message id="81">
        <source>XMP-Drone-Dji</source>
        <translation></translation>
    </message>
    <message id="82">
        <source>XMP-Drone-Parrot</source>
        <translation></translation>
    </message>
    <message id="83">
        <source>XMP-Dwc</source>
        <translation></translation>
    </message>
    <message id="84">
        <source>XMP-exif</source>
        <translation></translation>
    </message>
    <message id="85">
        <source>XMP-exifEX</source>
        <translation></translation>
    </message>
    <message id="86">
        <source>XMP-expressionmedia</source>
        <translation></translation>
    </message>
    <message id="87">
        <source>XMP-extensis</source>
        <translation></translation>
    </message>
    <message id="88">
        <source>XMP-fpv</source>
        <translation></translation>
    </message>
    <message id="89">
        <source>XMP-GAudio</source>
        <translation></translation>
    </message>
    <message id="90">
        <source>XMP-GCamera</source>
        <translation></translation>
    </message>
    <message id="91">
        <source>XMP-GCreations</source>
        <translation></translation>
    </message>
    <message id="92">
        <source>XMP-GDepth</source>
        <translation></translation>
    </message>
    <message id="93">
        <source>XMP-Getty</source>
        <translation></translation>
    </message>
    <message id="94">
        <source>XMP-GFocus</source>
        <translation></translation>
    </message>
    <message id="95">
        <source>XMP-GImage</source>
        <translation></translation>
    </message>
    <message id="96">
        <source>XMP-Gml</source>
        <translation></translation>
    </message>
    <message id="97">
        <source>XMP-GPano</source>
        <translation></translation>
    </message>
    <message id="98">
        <source>XMP-GSpherical</source>
        <translation></translation>
    </message>
    <message id="99">
        <source>XMP-ics</source>
        <translation></translation>
    </message>
    <message id="100">
        <source>XMP-idpriv</source>
        <translation></translation>
    </message>
    <message id="101">
        <source>XMP-illustrator</source>
        <translation></translation>
    </message>
    <message id="102">
        <source>XMP-iptcCore</source>
        <translation></translation>
    </message>
    <message id="103">
        <source>XMP-iptcExt</source>
        <translation></translation>
    </message>
    <message id="104">
        <source>XMP-leaf</source>
        <translation></translation>
    </message>
    <message id="105">
        <source>XMP-lfaschema</source>
        <translation></translation>
    </message>
    <message id="106">
        <source>XMP-lightroom</source>
        <translation></translation>
    </message>
    <message id="108">
        <source>XMP-mets</source>
        <translation></translation>
    </message>
    <message id="109">
        <source>XMP-mediapro</source>
        <translation></translation>
    </message>
    <message id="110">
        <source>XMP-microsoft</source>
        <translation></translation>
    </message>
    <message id="111">
        <source>XMP-mp1</source>
        <translation></translation>
    </message>
    <message id="112">
        <source>XMP-Mp</source>
        <translation></translation>
    </message>
    <message id="113">
        <source>XMP-mwg-rs</source>
        <translation></translation>
    </message>
    <message id="114">
        <source>XMP-opmedia</source>
        <translation></translation>
    </message>
    <message id="115">
        <source>XMP-pdf</source>
        <translation></translation>
    </message>
    <message id="116">
        <source>XMP-pdfx</source>
        <translation></translation>
    </message>
    <message id="117">
        <source>XMP-photomech</source>
        <translation></translation>
    </message>
    <message id="118">
        <source>XMP-photoshop</source>
        <translation></translation>
    </message>
    <message id="119">
        <source>XMP-pixellive</source>
        <translation></translation>
    </message>
    <message id="120">
        <source>XMP-plus</source>
        <translation></translation>
    </message>
    <message id="121">
        <source>XMP-pmtm-1</source>
        <translation></translation>
    </message>
    <message id="122">
        <source>XMP-prism</source>
        <translation></translation>
    </message>
    <message id="123">
        <source>XMP-rdf</source>
        <translation></translation>
    </message>
    <message id="124">
        <source>XMP-silverfast</source>
        <translation></translation>
    </message>
    <message id="125">
        <source>XMP-subversion</source>
        <translation></translation>
    </message>
    <message id="126">
        <source>XMP-swf</source>
        <translation></translation>
    </message>
    <message id="127">
        <source>XMP-tiff</source>
        <translation></translation>
    </message>
    <message id="129">
        <source>XMP-vrae</source>
        <translation></translation>
    </message>
    <message id="130">
        <source>XMP-webdam</source>
        <translation></translation>
    </message>
    <message id="131">
        <source>XMP-x</source>
        <translation></translation>
    </message>
    <message id="132">
        <source>XMP-xmp</source>
        <translation></translation>
    </message>
    <message id="133">
        <source>XMP-xmpDM</source>
        <translation></translation>
    </message>
    <message id="134">
        <source>XMP-xmpNote</source>
        <translation></translation>
    </message>
    <message id="135">
        <source>XMP-xmpMM</source>
        <translation></translation>
    </message>
    <message id="136">
        <source>XMP-xmpRights</source>
        <translation></translation>
    </message>
    <message id="137">
        <source>XMP-xmpTpg</source>
        <translation></translation>
    </message>
    <message id="138">
        <source>XMP-xmpXs</source>
        <translation></translation>
    </message>
    <message id="139">
        <source>XMP-xmpXsd</source>
        <translation></translation>
    </message>
    <message id="140">
        <source>XMP-xmpXsi</source>
        <translation></translation>
    </message>
    <message id="141">
        <source>XMP-xmpXsl</source>
        <translation></translation>
    </message>
    <message id="142">
        <source>GPS</source>
        <translation></translation>
    </message>
    <message id="146">
        <source>Comment</source>
        <translation></translation>
    </message>
    <message id="147">
        <source>From file...</source>
        <translation></translation>
    </message>
    <message id="148">
        <source>Remove...</source>
        <translation></translation>
    </message>
    <message id="150">
        <source>Copyright</source>
        <translation></translation>
    </message>
    <message id="151">
        <source>Remove copyright...</source>
        <translation></translation>
    </message>
    <message id="152">
        <source>Full copyright...</source>
        <translation></translation>
    </message>
    <message id="154">
        <source>Shift dates</source>
        <translation></translation>
    </message>
    <message id="155">
        <source>Reset...</source>
        <translation></translation>
    </message>
    <message id="156">
        <source>Set...</source>
        <translation></translation>
    </message>
    <message id="157">
        <source>File date</source>
        <translation></translation>
    </message>
    <message id="159">
        <source>Description</source>
        <translation></translation>
    </message>
    <message id="160">
        <source>Remove description...</source>
        <translation></translation>
    </message>
    <message id="162">
        <source>From CSV...</source>
        <translation></translation>
    </message>
    <message id="163">
        <source>Track log</source>
        <translation></translation>
    </message>
    <message id="164">
        <source>Remove...</source>
        <translation></translation>
    </message>
    <message id="169">
        <source>Rating...</source>
        <translation></translation>
    </message>
    <message id="171">
        <source>By date</source>
        <translation></translation>
    </message>
    <message id="172">
        <source>Shutter count</source>
        <translation></translation>
    </message>
    <message id="173">
        <source>Date and maker</source>
        <translation></translation>
    </message>
    <message id="174">
        <source>Date and model</source>
        <translation></translation>
    </message>
    <message id="176">
        <source>All or families...</source>
        <translation></translation>
    </message>
    <message id="177">
        <source>Remove tags</source>
        <translation></translation>
    </message>
    <message id="178">
        <source>Groups...</source>
        <translation></translation>
    </message>
    <message id="180">
        <source>Validate</source>
        <translation></translation>
    </message>
    <message id="181">
        <source>Validate fully</source>
        <translation></translation>
    </message>
    <message id="183">
        <source>Embed thumbnail</source>
        <translation></translation>
    </message>
    <message id="185">
        <source>Remove thumbnail</source>
        <translation></translation>
    </message>
    <message id="187">
        <source>Title</source>
        <translation></translation>
    </message>
    <message id="188">
        <source>Remove title...</source>
        <translation></translation>
    </message>
    <message id="191">
        <source>Any tag</source>
        <translation></translation>
    </message>
    <message id="192">
        <source>EXIF</source>
        <translation></translation>
    </message>
    <message id="193">
        <source>IPTC</source>
        <translation></translation>
    </message>
    <message id="194">
        <source>XMP</source>
        <translation></translation>
    </message>
    <message id="195">
        <source>GPS</source>
        <translation></translation>
    </message>
    <message id="196">
        <source>ICC</source>
        <translation></translation>
    </message>
    <message id="197">
        <source>Maker notes</source>
        <translation></translation>
    </message>
    <message id="198">
        <source>Composite</source>
        <translation></translation>
    </message>
    <message id="199">
        <source>File</source>
        <translation></translation>
    </message>
    <message id="200">
        <source>Audio and video</source>
        <translation></translation>
    </message>
    <message id="201">
        <source>Documents</source>
        <translation></translation>
    </message>
    <message id="202">
        <source>Others</source>
        <translation></translation>
    </message>
    <message id="203">
        <source>Find text</source>
        <translation></translation>
    </message>
    <message id="204">
        <source>Without tags...</source>
        <translation></translation>
    </message>
    <message id="206">
        <source>Export</source>
        <translation></translation>
    </message>
    <message id="208">
        <source>By set</source>
        <translation></translation>
    </message>
    <message id="209">
        <source>Create set...</source>
        <translation></translation>
    </message>
    <message id="210">
        <source>Delete sets...</source>
        <translation></translation>
    </message>
    <message id="211">
        <source>EXIF</source>
        <translation></translation>
    </message>
    <message id="212">
        <source>IPTC</source>
        <translation></translation>
    </message>
    <message id="213">
        <source>XMP</source>
        <translation></translation>
    </message>
    <message id="214">
        <source>GPS</source>
        <translation></translation>
    </message>
    <message id="215">
        <source>MakerNotes</source>
        <translation></translation>
    </message>
    <message id="216">
        <source>Thumbnail</source>
        <translation></translation>
    </message>
    <message id="217">
        <source>ICC profile</source>
        <translation></translation>
    </message>
    <message id="219">
        <source>EXIF</source>
        <translation></translation>
    </message>
    <message id="220">
        <source>IPTC</source>
        <translation></translation>
    </message>
    <message id="221">
        <source>XMP</source>
        <translation></translation>
    </message>
    <message id="222">
        <source>Anonymous CSV</source>
        <translation></translation>
    </message>
    <message id="223">
        <source>ICC profile</source>
        <translation></translation>
    </message>
    <message id="226">
        <source>Web rights</source>
        <translation></translation>
    </message>
    <message id="227">
        <source>Watermark...</source>
        <translation></translation>
    </message>
    <message id="228">
        <source>MyBatch</source>
        <translation></translation>
    </message>
    <message id="235">
        <source>Documents</source>
        <translation></translation>
    </message>
    <message id="236">
        <source>Downloads</source>
        <translation></translation>
    </message>
    <message id="237">
        <source>Music</source>
        <translation></translation>
    </message>
    <message id="238">
        <source>Pictures</source>
        <translation></translation>
    </message>
    <message id="239">
        <source>Videos</source>
        <translation></translation>
    </message>
    <message id="240">
        <source>Home folder</source>
        <translation></translation>
    </message>
    <message id="241">
        <source>Computer</source>
        <translation></translation>
    </message>
    <message id="242">
        <source>Trash</source>
        <translation></translation>
    </message>
    <message id="245">
        <source>Open</source>
        <translation></translation>
    </message>
    <message id="246">
        <source>Select none</source>
        <translation></translation>
    </message>
    <message id="248">
        <source>Refresh</source>
        <translation></translation>
    </message>
    <message id="279">
        <source>Columns</source>
        <translation></translation>
    </message>
    <message id="284">
        <source>About</source>
        <translation></translation>
    </message>
    <message id="298">
        <source>Tile lines...</source>
        <translation></translation>
    </message>
    <message id="299">
        <source>GPS map...</source>
        <translation></translation>
    </message>
    <message id="302">
        <source>Tag list</source>
        <translation></translation>
    </message>
    <message id="1819">
        <source>Remove tags...</source>
        <translation></translation>
    </message>
    <message id="1821">
        <source>Remove group...</source>
        <translation></translation>
    </message>
    <message id="1824">
        <source>Add tags</source>
        <translation></translation>
    </message>
    <message id="5033">
        <source>Back</source>
        <translation></translation>
    </message>
    <message id="5034">
        <source>Forward</source>
        <translation></translation>
    </message>
    <message id="5035">
        <source>Up</source>
        <translation></translation>
    </message>
    <message id="5038">
        <source>Import set...</source>
        <translation></translation>
    </message>
    <message id="5039">
        <source>Export set...</source>
        <translation></translation>
    </message>
    <message id="5040">
        <source>Check boxes</source>
        <translation></translation>
    </message>
    <message id="5041">
        <source>Selected files...</source>
        <translation></translation>
    </message>
    <message id="5050">
        <source>Smart details</source>
        <translation></translation>
    </message>
    <message id="10004">
        <source>HTML dump</source>
        <translation></translation>
    </message>
    <message id="10007">
        <source>Text dump</source>
        <translation></translation>
    </message>
    <message id="10034">
        <source>Text</source>
        <translation></translation>
    </message>
    <message id="10035">
        <source>CSV</source>
        <translation></translation>
    </message>
    <message id="10036">
        <source>HTML table</source>
        <translation></translation>
    </message>
    <message id="10037">
        <source>XML</source>
        <translation></translation>
    </message>
    <message id="10038">
        <source>MIE</source>
        <translation></translation>
    </message>
    <message id="10039">
        <source>HTML table by groups</source>
        <translation></translation>
    </message>
    <message id="10040">
        <source>Text, tag names short</source>
        <translation></translation>
    </message>
    <message id="10041">
        <source>Text, values as numbers</source>
        <translation></translation>
    </message>
    <message id="10042">
        <source>Print...</source>
        <translation></translation>
    </message>
    <message id="10044">
        <source>Everything...</source>
        <translation></translation>
    </message>
    <message id="10062">
        <source>From a file...</source>
        <translation></translation>
    </message>
    <message id="10065">
        <source>Copy tags</source>
        <translation></translation>
    </message>
    <message id="10066">
        <source>EXIF</source>
        <translation></translation>
    </message>
    <message id="10067">
        <source>IPTC</source>
        <translation></translation>
    </message>
    <message id="10068">
        <source>XMP</source>
        <translation></translation>
    </message>
    <message id="10069">
        <source>ICC profile</source>
        <translation></translation>
    </message>
    <message id="10071">
        <source>GPS</source>
        <translation></translation>
    </message>
    <message id="10072">
        <source>All metadata</source>
        <translation></translation>
    </message>
    <message id="30001">
        <source>Web site</source>
        <translation></translation>
    </message>
    <message id="40013">
        <source>Open with...</source>
        <translation></translation>
    </message>
    <message id="40014">
        <source>Place on web</source>
        <translation></translation>
    </message>
    <message id="40063">
        <source>Copy</source>
        <translation></translation>
    </message>
    <message id="40064">
        <source>Rename</source>
        <translation></translation>
    </message>
    <message id="40065">
        <source>Properties</source>
        <translation></translation>
    </message>
    <message id="40071">
        <source>Paste</source>
        <translation></translation>
    </message>
    <message id="40072">
        <source>Copy to...</source>
        <translation></translation>
    </message>
    <message id="40073">
        <source>Move to...</source>
        <translation></translation>
    </message>
    <message id="40074">
        <source>Select all</source>
        <translation></translation>
    </message>
    <message id="40075">
        <source>Invert</source>
        <translation></translation>
    </message>
    <message id="40089">
        <source>Ascending</source>
        <translation></translation>
    </message>
    <message id="40090">
        <source>Descending</source>
        <translation></translation>
    </message>
    <message id="40091">
        <source>Cut</source>
        <translation></translation>
    </message>
    <message id="40092">
        <source>Quit</source>
        <translation></translation>
    </message>
    <message id="40093">
        <source>Undo</source>
        <translation></translation>
    </message>
    <message id="40106">
        <source>Hidden files</source>
        <translation></translation>
    </message>
    <message id="40110">
        <source>Restart</source>
        <translation></translation>
    </message>
    <message id="50001">
        <source>Name</source>
        <translation></translation>
    </message>
    <message id="50002">
        <source>Date modified</source>
        <translation></translation>
    </message>
    <message id="50003">
        <source>Size</source>
        <translation></translation>
    </message>
    <message id="50004">
        <source>Type</source>
        <translation></translation>
    </message>
    <message id="50005">
        <source>Total size</source>
        <translation></translation>
    </message>
    <message id="50006">
        <source>Free space</source>
        <translation></translation>
    </message>
    <message id="50007">
        <source>Comments</source>
        <translation></translation>
    </message>
    <message id="50008">
        <source>Date deleted</source>
        <translation></translation>
    </message>
    <message id="50009">
        <source>Original location</source>
        <translation></translation>
    </message>
    <message id="50010">
        <source>Attributes</source>
        <translation></translation>
    </message>
    <message id="50011">
        <source>Size on disk</source>
        <translation></translation>
    </message>
    <message id="50012">
        <source>Owner</source>
        <translation></translation>
    </message>
    <message id="50013">
        <source>Rating</source>
        <translation></translation>
    </message>
    <message id="50014">
        <source>Product name</source>
        <translation></translation>
    </message>
    <message id="50015">
        <source>Company</source>
        <translation></translation>
    </message>
    <message id="50016">
        <source>File description</source>
        <translation></translation>
    </message>
    <message id="50017">
        <source>File version</source>
        <translation></translation>
    </message>
    <message id="50018">
        <source>Product version</source>
        <translation></translation>
    </message>
    <message id="50021">
        <source>Extension</source>
        <translation></translation>
    </message>
    <message id="50022">
        <source>Date created</source>
        <translation></translation>
    </message>
    <message id="50023">
        <source>Date accessed</source>
        <translation></translation>
    </message>
    <message id="50024">
        <source>Title</source>
        <translation></translation>
    </message>
    <message id="50025">
        <source>Subject</source>
        <translation></translation>
    </message>
    <message id="50026">
        <source>Authors</source>
        <translation></translation>
    </message>
    <message id="50027">
        <source>Keywords</source>
        <translation></translation>
    </message>
    <message id="50029">
        <source>Camera model</source>
        <translation></translation>
    </message>
    <message id="50030">
        <source>Date taken</source>
        <translation></translation>
    </message>
    <message id="50031">
        <source>Width</source>
        <translation></translation>
    </message>
    <message id="50032">
        <source>Height</source>
        <translation></translation>
    </message>
    <message id="50033">
        <source>Virtual comments</source>
        <translation></translation>
    </message>
    <message id="50035">
        <source>Bit rate</source>
        <translation></translation>
    </message>
    <message id="50036">
        <source>Copyright</source>
        <translation></translation>
    </message>
    <message id="50037">
        <source>Duration</source>
        <translation></translation>
    </message>
    <message id="50038">
        <source>Protected</source>
        <translation></translation>
    </message>
    <message id="50039">
        <source>Rating of the medium</source>
        <translation></translation>
    </message>
    <message id="50040">
        <source>Album artist</source>
        <translation></translation>
    </message>
    <message id="50041">
        <source>Album</source>
        <translation></translation>
    </message>
    <message id="50042">
        <source>Beats per minute</source>
        <translation></translation>
    </message>
    <message id="50043">
        <source>Composer</source>
        <translation></translation>
    </message>
    <message id="50044">
        <source>Conductor</source>
        <translation></translation>
    </message>
    <message id="50045">
        <source>Director</source>
        <translation></translation>
    </message>
    <message id="50046">
        <source>Genre</source>
        <translation></translation>
    </message>
    <message id="50047">
        <source>Language</source>
        <translation></translation>
    </message>
    <message id="50048">
        <source>Broadcast date</source>
        <translation></translation>
    </message>
    <message id="50049">
        <source>Channel</source>
        <translation></translation>
    </message>
    <message id="50050">
        <source>Station name</source>
        <translation></translation>
    </message>
    <message id="50051">
        <source>Mood</source>
        <translation></translation>
    </message>
    <message id="50052">
        <source>Parental rating</source>
        <translation></translation>
    </message>
    <message id="50053">
        <source>Reason for the parental rating</source>
        <translation></translation>
    </message>
    <message id="50054">
        <source>Period</source>
        <translation></translation>
    </message>
    <message id="50055">
        <source>Producer</source>
        <translation></translation>
    </message>
    <message id="50056">
        <source>Publisher</source>
        <translation></translation>
    </message>
    <message id="50057">
        <source>Writer</source>
        <translation></translation>
    </message>
    <message id="50058">
        <source>Year</source>
        <translation></translation>
    </message>
    <message id="50059">
        <source>Kind</source>
        <translation></translation>
    </message>
    <message id="50101">
        <source>Name</source>
        <translation></translation>
    </message>
    <message id="50102">
        <source>Date modified</source>
        <translation></translation>
    </message>
    <message id="50103">
        <source>Size</source>
        <translation></translation>
    </message>
    <message id="50104">
        <source>Type</source>
        <translation></translation>
    </message>
    <message id="50105">
        <source>Total size</source>
        <translation></translation>
    </message>
    <message id="50106">
        <source>Free space</source>
        <translation></translation>
    </message>
    <message id="50107">
        <source>Comments</source>
        <translation></translation>
    </message>
    <message id="50108">
        <source>Date deleted</source>
        <translation></translation>
    </message>
    <message id="50109">
        <source>Original location</source>
        <translation></translation>
    </message>
    <message id="50110">
        <source>Attributes</source>
        <translation></translation>
    </message>
    <message id="50111">
        <source>Size on disk</source>
        <translation></translation>
    </message>
    <message id="50112">
        <source>Owner</source>
        <translation></translation>
    </message>
    <message id="50113">
        <source>Rating</source>
        <translation></translation>
    </message>
    <message id="50114">
        <source>Product name</source>
        <translation></translation>
    </message>
    <message id="50115">
        <source>Company</source>
        <translation></translation>
    </message>
    <message id="50116">
        <source>File description</source>
        <translation></translation>
    </message>
    <message id="50117">
        <source>File version</source>
        <translation></translation>
    </message>
    <message id="50118">
        <source>Product version</source>
        <translation></translation>
    </message>
    <message id="50121">
        <source>Extension</source>
        <translation></translation>
    </message>
    <message id="50122">
        <source>Date created</source>
        <translation></translation>
    </message>
    <message id="50123">
        <source>Date accessed</source>
        <translation></translation>
    </message>
    <message id="50124">
        <source>Title</source>
        <translation></translation>
    </message>
    <message id="50125">
        <source>Subject</source>
        <translation></translation>
    </message>
    <message id="50126">
        <source>Authors</source>
        <translation></translation>
    </message>
    <message id="50127">
        <source>Keywords</source>
        <translation></translation>
    </message>
    <message id="50129">
        <source>Camera model</source>
        <translation></translation>
    </message>
    <message id="50130">
        <source>Date taken</source>
        <translation></translation>
    </message>
    <message id="50131">
        <source>Width</source>
        <translation></translation>
    </message>
    <message id="50132">
        <source>Height</source>
        <translation></translation>
    </message>
    <message id="50133">
        <source>Virtual comments</source>
        <translation></translation>
    </message>
    <message id="50135">
        <source>Bit rate</source>
        <translation></translation>
    </message>
    <message id="50136">
        <source>Copyright</source>
        <translation></translation>
    </message>
    <message id="50137">
        <source>Duration</source>
        <translation></translation>
    </message>
    <message id="50138">
        <source>Protected</source>
        <translation></translation>
    </message>
    <message id="50139">
        <source>Rating of the medium</source>
        <translation></translation>
    </message>
    <message id="50140">
        <source>Album artist</source>
        <translation></translation>
    </message>
    <message id="50141">
        <source>Album</source>
        <translation></translation>
    </message>
    <message id="50142">
        <source>Beats per minute</source>
        <translation></translation>
    </message>
    <message id="50143">
        <source>Composer</source>
        <translation></translation>
    </message>
    <message id="50144">
        <source>Conductor</source>
        <translation></translation>
    </message>
    <message id="50145">
        <source>Director</source>
        <translation></translation>
    </message>
    <message id="50146">
        <source>Genre</source>
        <translation></translation>
    </message>
    <message id="50147">
        <source>Language</source>
        <translation></translation>
    </message>
    <message id="50148">
        <source>Broadcast date</source>
        <translation></translation>
    </message>
    <message id="50149">
        <source>Channel</source>
        <translation></translation>
    </message>
    <message id="50150">
        <source>Station name</source>
        <translation></translation>
    </message>
    <message id="50151">
        <source>Mood</source>
        <translation></translation>
    </message>
    <message id="50152">
        <source>Parental rating</source>
        <translation></translation>
    </message>
    <message id="50153">
        <source>Reason for the parental rating</source>
        <translation></translation>
    </message>
    <message id="50154">
        <source>Period</source>
        <translation></translation>
    </message>
    <message id="50155">
        <source>Producer</source>
        <translation></translation>
    </message>
    <message id="50156">
        <source>Publisher</source>
        <translation></translation>
    </message>
    <message id="50157">
        <source>Writer</source>
        <translation></translation>
    </message>
    <message id="50158">
        <source>Year</source>
        <translation></translation>
    </message>
    <message id="50159">
        <source>Kind</source>
        <translation></translation>
    </message>
    <message id="70166">
        <source>Add keywords</source>
        <translation></translation>
    </message>
    <message id="70167">
        <source>From file...</source>
        <translation></translation>
    </message>
    <message id="70168">
        <source>Remove...</source>
        <translation></translation>
    </message>
    <message id="70234">
        <source>Desktop</source>
        <translation></translation>
    </message>
    <message id="70250">
        <source>Colour 1</source>
        <translation></translation>
    </message>
    <message id="70251">
        <source>Colour 2</source>
        <translation></translation>
    </message>
    <message id="70252">
        <source>Colour 3</source>
        <translation></translation>
    </message>
    <message id="70253">
        <source>Colour 4</source>
        <translation></translation>
    </message>
    <message id="70254">
        <source>Colour 5</source>
        <translation></translation>
    </message>
    <message id="70255">
        <source>Colour 6</source>
        <translation></translation>
    </message>
    <message id="70256">
        <source>Colour 7</source>
        <translation></translation>
    </message>
    <message id="70257">
        <source>Colour 8</source>
        <translation></translation>
    </message>
    <message id="70258">
        <source>Colour 9</source>
        <translation></translation>
    </message>
    <message id="70259">
        <source>Colour 10</source>
        <translation></translation>
    </message>
    <message id="70260">
        <source>Colour 11</source>
        <translation></translation>
    </message>
    <message id="70261">
        <source>Colour 12</source>
        <translation></translation>
    </message>
    <message id="70262">
        <source>Colour 13</source>
        <translation></translation>
    </message>
    <message id="70263">
        <source>Colour 14</source>
        <translation></translation>
    </message>
    <message id="70264">
        <source>Colour 15</source>
        <translation></translation>
    </message>
    <message id="70265">
        <source>Colour 16</source>
        <translation></translation>
    </message>
    <message id="70266">
        <source>Colour 17</source>
        <translation></translation>
    </message>
    <message id="70267">
        <source>Colour 18</source>
        <translation></translation>
    </message>
    <message id="70268">
        <source>Colour 19</source>
        <translation></translation>
    </message>
    <message id="70269">
        <source>Colour 20</source>
        <translation></translation>
    </message>
    <message id="70270">
        <source>Colour 21</source>
        <translation></translation>
    </message>
    <message id="70271">
        <source>Colour 22</source>
        <translation></translation>
    </message>
    <message id="70272">
        <source>Colour 23</source>
        <translation></translation>
    </message>
    <message id="70273">
        <source>Colour 24</source>
        <translation></translation>
    </message>
    <message id="70274">
        <source>Colour 25</source>
        <translation></translation>
    </message>
    <message id="70275">
        <source>Colour 26</source>
        <translation></translation>
    </message>
    <message id="70276">
        <source>Colour 27</source>
        <translation></translation>
    </message>
    <message id="70277">
        <source>Colour 28</source>
        <translation></translation>
    </message>
    <message id="70278">
        <source>Colour 29</source>
        <translation></translation>
    </message>
    <message id="70304">
        <source>ExifTool</source>
        <translation></translation>
    </message>
    <message id="70305">
        <source>FFmpeg...</source>
        <translation></translation>
    </message>
    <message id="70306">
        <source>ImageMagick...</source>
        <translation></translation>
    </message>
    <message id="70307">
        <source>Dark mode...</source>
        <translation></translation>
    </message>
    <message id="72000">
        <source>Show or hide the buttons</source>
        <translation></translation>
    </message>
    <message id="72001">
        <source>Home</source>
        <translation></translation>
    </message>
    <message id="72002">
        <source>View</source>
        <translation></translation>
    </message>
    <message id="72003">
        <source>Metadata</source>
        <translation></translation>
    </message>
    <message id="72004">
        <source>Batch</source>
        <translation></translation>
    </message>
    <message id="72005">
        <source>Export</source>
        <translation></translation>
    </message>
    <message id="72006">
        <source>Search</source>
        <translation></translation>
    </message>
    <message id="72007">
        <source>Setup</source>
        <translation></translation>
    </message>
    <message id="72008">
        <source>Help</source>
        <translation></translation>
    </message>
    <message id="72101">
        <source>Navigate</source>
        <translation></translation>
    </message>
    <message id="72102">
        <source>Open</source>
        <translation></translation>
    </message>
    <message id="72103">
        <source>Places</source>
        <translation></translation>
    </message>
    <message id="72104">
        <source>Clipboard</source>
        <translation></translation>
    </message>
    <message id="72105">
        <source>Organize</source>
        <translation></translation>
    </message>
    <message id="72106">
        <source>Select</source>
        <translation></translation>
    </message>
    <message id="72107">
        <source>File list</source>
        <translation></translation>
    </message>
    <message id="72108">
        <source>Right panel</source>
        <translation></translation>
    </message>
    <message id="72109">
        <source>Show</source>
        <translation></translation>
    </message>
    <message id="72110">
        <source>Columns</source>
        <translation></translation>
    </message>
    <message id="72111">
        <source>Arrange</source>
        <translation></translation>
    </message>
    <message id="72112">
        <source>Modify</source>
        <translation></translation>
    </message>
    <message id="72113">
        <source>Add tags</source>
        <translation></translation>
    </message>
    <message id="72114">
        <source>Shown file</source>
        <translation></translation>
    </message>
    <message id="72115">
        <source>Copy</source>
        <translation></translation>
    </message>
    <message id="72116">
        <source>Remove</source>
        <translation></translation>
    </message>
    <message id="72117">
        <source>Dump</source>
        <translation></translation>
    </message>
    <message id="72118">
        <source>Keywords</source>
        <translation></translation>
    </message>
    <message id="72119">
        <source>Texts</source>
        <translation></translation>
    </message>
    <message id="72120">
        <source>Dates</source>
        <translation></translation>
    </message>
    <message id="72121">
        <source>Geotag</source>
        <translation></translation>
    </message>
    <message id="72122">
        <source>Rename</source>
        <translation></translation>
    </message>
    <message id="72123">
        <source>Rights</source>
        <translation></translation>
    </message>
    <message id="72124">
        <source>More</source>
        <translation></translation>
    </message>
    <message id="72125">
        <source>Export metadata</source>
        <translation></translation>
    </message>
    <message id="72126">
        <source>Export sets</source>
        <translation></translation>
    </message>
    <message id="72127">
        <source>Embedded data</source>
        <translation></translation>
    </message>
    <message id="72128">
        <source>Import</source>
        <translation></translation>
    </message>
    <message id="72129">
        <source>Find</source>
        <translation></translation>
    </message>
    <message id="72130">
        <source>Find files with a tag</source>
        <translation></translation>
    </message>
    <message id="72131">
        <source>Look</source>
        <translation></translation>
    </message>
    <message id="72132">
        <source>Tools</source>
        <translation></translation>
    </message>
    <message id="72133">
        <source>Program</source>
        <translation></translation>
    </message>
    <message id="72134">
        <source>Help</source>
        <translation></translation>
    </message>
    <message id="72136">
        <source>Shown file</source>
        <translation></translation>
    </message>
    <message id="72301">
        <source>Sort by</source>
        <translation></translation>
    </message>
    <message id="72302">
        <source>Group by</source>
        <translation></translation>
    </message>
    <message id="72303">
        <source>EXIF</source>
        <translation></translation>
    </message>
    <message id="72304">
        <source>IPTC</source>
        <translation></translation>
    </message>
    <message id="72305">
        <source>XMP</source>
        <translation></translation>
    </message>
    <message id="72306">
        <source>A to C</source>
        <translation></translation>
    </message>
    <message id="72307">
        <source>D to F</source>
        <translation></translation>
    </message>
    <message id="72308">
        <source>G to H</source>
        <translation></translation>
    </message>
    <message id="72309">
        <source>I to L</source>
        <translation></translation>
    </message>
    <message id="72310">
        <source>M to O</source>
        <translation></translation>
    </message>
    <message id="72311">
        <source>P to R</source>
        <translation></translation>
    </message>
    <message id="72312">
        <source>S to X</source>
        <translation></translation>
    </message>
    <message id="72313">
        <source>Family</source>
        <translation></translation>
    </message>
    <message id="72314">
        <source>Files</source>
        <translation></translation>
    </message>
    <message id="72315">
        <source>Documents</source>
        <translation></translation>
    </message>
    <message id="72316">
        <source>Media</source>
        <translation></translation>
    </message>
    <message id="72317">
        <source>Save tags</source>
        <translation></translation>
    </message>
    <message id="72318">
        <source>Highlight</source>
        <translation></translation>
    </message>
    <message id="82500">
        <source>ExifTool wrote nothing about "%s".</source>
        <translation></translation>
    </message>
    <message id="82501">
        <source>"%s" exists already. Replace it?</source>
        <translation></translation>
    </message>
    <message id="82502">
        <source>"%s" cannot be written: %s</source>
        <translation></translation>
    </message>
    <message id="82503">
        <source>Tags written to %s</source>
        <translation></translation>
    </message>
    <message id="82504">
        <source>"%s" has not been written: ExifTool gave no values.</source>
        <translation></translation>
    </message>
    <message id="100006">
        <source>Opens the help in the browser.</source>
        <translation></translation>
    </message>
    <message id="100008">
        <source>Shows the tree of folders at the left.</source>
        <translation></translation>
    </message>
    <message id="100009">
        <source>Shows the line at the foot of the window.</source>
        <translation></translation>
    </message>
    <message id="100010">
        <source>Shows a picture of the selected file.</source>
        <translation></translation>
    </message>
    <message id="100012">
        <source>One line for each file, with columns.</source>
        <translation></translation>
    </message>
    <message id="100013">
        <source>A picture with lines of text for each file.</source>
        <translation></translation>
    </message>
    <message id="100014">
        <source>Pictures of the files.</source>
        <translation></translation>
    </message>
    <message id="100015">
        <source>Large pictures of the files.</source>
        <translation></translation>
    </message>
    <message id="100017">
        <source>Shows the tags of the selected file.</source>
        <translation></translation>
    </message>
    <message id="100018">
        <source>Shows where the selected file was taken.</source>
        <translation></translation>
    </message>
    <message id="100019">
        <source>Shows the bytes of the selected file.</source>
        <translation></translation>
    </message>
    <message id="100020">
        <source>Shows the help panel.</source>
        <translation></translation>
    </message>
    <message id="100022">
        <source>Changes the EXIF tags of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100023">
        <source>Adds tags of IFD0 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100024">
        <source>Adds tags of IFD1 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100025">
        <source>Adds tags of IFD2 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100026">
        <source>Adds tags of InteropIFD to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100027">
        <source>Adds tags of SubIFD to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100028">
        <source>Adds tags of SubIFD1 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100029">
        <source>Adds tags of SubIFD2 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100030">
        <source>Adds tags of ExifIFD to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100031">
        <source>Changes the IPTC tags of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100032">
        <source>Adds tags of the IPTC application record to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100033">
        <source>Adds tags of the IPTC envelope record to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100034">
        <source>Adds tags of the IPTC news photo record to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100035">
        <source>Changes the XMP tags of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100036">
        <source>Adds XMP tags of all kinds to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100057">
        <source>Adds tags of XMP-aas to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100058">
        <source>Adds tags of XMP-acdsee to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100059">
        <source>Adds tags of XMP-album to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100060">
        <source>Adds tags of XMP-AnalogExif to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100061">
        <source>Adds tags of XMP-APDI to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100062">
        <source>Adds tags of XMP-AppleFI to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100063">
        <source>Adds tags of XMP-art to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100064">
        <source>Adds tags of XMP-attr to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100065">
        <source>Adds tags of XMP-aux to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100066">
        <source>Adds tags of XMP-xmpBJ to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100067">
        <source>Adds tags of XMP-Camera to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100068">
        <source>Adds tags of XMP-Camera_1_ to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100069">
        <source>Adds tags of XMP-Cc to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100070">
        <source>Adds tags of XMP-Cell to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100071">
        <source>Adds tags of XMP-Claro to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100072">
        <source>Adds tags of XMP-Crd to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100073">
        <source>Adds tags of XMP-CreatorAtom to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100074">
        <source>Adds tags of XMP-crs to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100075">
        <source>Adds tags of XMP-dc to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100076">
        <source>Adds tags of XMP-DepthBlueEffect to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100077">
        <source>Adds tags of XMP-DepthData to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100078">
        <source>Adds tags of XMP-Dex to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100079">
        <source>Adds tags of XMP-Dicom to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100080">
        <source>Adds tags of XMP-Digikam to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100081">
        <source>Adds tags of XMP-Drone-Dji to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100082">
        <source>Adds tags of XMP-Drone-Parrot to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100083">
        <source>Adds tags of XMP-Dwc to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100084">
        <source>Adds tags of XMP-exif to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100085">
        <source>Adds tags of XMP-exifEX to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100086">
        <source>Adds tags of XMP-expressionmedia to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100087">
        <source>Adds tags of XMP-extensis to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100088">
        <source>Adds tags of XMP-fpv to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100089">
        <source>Adds tags of XMP-GAudio to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100090">
        <source>Adds tags of XMP-GCamera to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100091">
        <source>Adds tags of XMP-GCreations to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100092">
        <source>Adds tags of XMP-GDepth to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100093">
        <source>Adds tags of XMP-Getty to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100094">
        <source>Adds tags of XMP-GFocus to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100095">
        <source>Adds tags of XMP-GImage to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100096">
        <source>Adds tags of XMP-Gml to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100097">
        <source>Adds tags of XMP-GPano to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100098">
        <source>Adds tags of XMP-GSpherical to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100099">
        <source>Adds tags of XMP-ics to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100100">
        <source>Adds tags of XMP-idpriv to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100101">
        <source>Adds tags of XMP-illustrator to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100102">
        <source>Adds tags of XMP-iptcCore to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100103">
        <source>Adds tags of XMP-iptcExt to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100104">
        <source>Adds tags of XMP-leaf to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100105">
        <source>Adds tags of XMP-lfaschema to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100106">
        <source>Adds tags of XMP-lightroom to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100108">
        <source>Adds tags of XMP-mets to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100109">
        <source>Adds tags of XMP-mediapro to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100110">
        <source>Adds tags of XMP-microsoft to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100111">
        <source>Adds tags of XMP-mp1 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100112">
        <source>Adds tags of XMP-Mp to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100113">
        <source>Adds tags of XMP-mwg-rs to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100114">
        <source>Adds tags of XMP-opmedia to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100115">
        <source>Adds tags of XMP-pdf to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100116">
        <source>Adds tags of XMP-pdfx to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100117">
        <source>Adds tags of XMP-photomech to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100118">
        <source>Adds tags of XMP-photoshop to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100119">
        <source>Adds tags of XMP-pixellive to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100120">
        <source>Adds tags of XMP-plus to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100121">
        <source>Adds tags of XMP-pmtm-1 to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100122">
        <source>Adds tags of XMP-prism to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100123">
        <source>Adds tags of XMP-rdf to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100124">
        <source>Adds tags of XMP-silverfast to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100125">
        <source>Adds tags of XMP-subversion to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100126">
        <source>Adds tags of XMP-swf to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100127">
        <source>Adds tags of XMP-tiff to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100129">
        <source>Adds tags of XMP-vrae to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100130">
        <source>Adds tags of XMP-webdam to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100131">
        <source>Adds tags of XMP-x to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100132">
        <source>Adds tags of XMP-xmp to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100133">
        <source>Adds tags of XMP-xmpDM to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100134">
        <source>Adds tags of XMP-xmpNote to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100135">
        <source>Adds tags of XMP-xmpMM to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100136">
        <source>Adds tags of XMP-xmpRights to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100137">
        <source>Adds tags of XMP-xmpTpg to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100138">
        <source>Adds tags of XMP-xmpXs to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100139">
        <source>Adds tags of XMP-xmpXsd to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100140">
        <source>Adds tags of XMP-xmpXsi to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100141">
        <source>Adds tags of XMP-xmpXsl to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100142">
        <source>Adds GPS tags to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100146">
        <source>Adds a comment to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100147">
        <source>Adds comments out of text files.</source>
        <translation></translation>
    </message>
    <message id="100148">
        <source>Removes the comments.</source>
        <translation></translation>
    </message>
    <message id="100150">
        <source>Adds a copyright notice to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100151">
        <source>Removes the copyright notices.</source>
        <translation></translation>
    </message>
    <message id="100152">
        <source>Adds all fields of a copyright notice.</source>
        <translation></translation>
    </message>
    <message id="100154">
        <source>Moves the dates of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100155">
        <source>Sets the dates back.</source>
        <translation></translation>
    </message>
    <message id="100156">
        <source>Sets date and time.</source>
        <translation></translation>
    </message>
    <message id="100157">
        <source>Sets the file date to the date of the photo.</source>
        <translation></translation>
    </message>
    <message id="100159">
        <source>Adds a description to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100160">
        <source>Removes the descriptions.</source>
        <translation></translation>
    </message>
    <message id="100162">
        <source>Adds positions from a CSV file.</source>
        <translation></translation>
    </message>
    <message id="100163">
        <source>Adds positions from a track log.</source>
        <translation></translation>
    </message>
    <message id="100164">
        <source>Removes the positions.</source>
        <translation></translation>
    </message>
    <message id="100169">
        <source>Rates the selected files.</source>
        <translation></translation>
    </message>
    <message id="100171">
        <source>Renames the selected files by their dates.</source>
        <translation></translation>
    </message>
    <message id="100172">
        <source>Renames by the shutter count.</source>
        <translation></translation>
    </message>
    <message id="100173">
        <source>Renames by date and camera maker.</source>
        <translation></translation>
    </message>
    <message id="100174">
        <source>Renames by date and camera model.</source>
        <translation></translation>
    </message>
    <message id="100176">
        <source>Removes everything, or chosen families of tags, from the selected files.</source>
        <translation></translation>
    </message>
    <message id="100177">
        <source>Removes chosen tags from the selected files.</source>
        <translation></translation>
    </message>
    <message id="100178">
        <source>Removes chosen groups from the selected files.</source>
        <translation></translation>
    </message>
    <message id="100180">
        <source>Checks the metadata of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100181">
        <source>Checks the metadata in every detail.</source>
        <translation></translation>
    </message>
    <message id="100183">
        <source>Embeds a thumbnail in the selected files.</source>
        <translation></translation>
    </message>
    <message id="100185">
        <source>Removes the embedded thumbnails.</source>
        <translation></translation>
    </message>
    <message id="100187">
        <source>Adds a title to the selected files.</source>
        <translation></translation>
    </message>
    <message id="100188">
        <source>Removes the titles.</source>
        <translation></translation>
    </message>
    <message id="100191">
        <source>Finds files that hold chosen tags.</source>
        <translation></translation>
    </message>
    <message id="100192">
        <source>Finds files that hold chosen EXIF tags.</source>
        <translation></translation>
    </message>
    <message id="100193">
        <source>Finds files that hold chosen IPTC tags.</source>
        <translation></translation>
    </message>
    <message id="100194">
        <source>Finds files that hold chosen XMP tags.</source>
        <translation></translation>
    </message>
    <message id="100195">
        <source>Finds files that hold chosen GPS tags.</source>
        <translation></translation>
    </message>
    <message id="100196">
        <source>Finds files that hold chosen tags of a colour profile.</source>
        <translation></translation>
    </message>
    <message id="100197">
        <source>Finds files that hold chosen maker notes.</source>
        <translation></translation>
    </message>
    <message id="100198">
        <source>Finds files that have chosen composite tags.</source>
        <translation></translation>
    </message>
    <message id="100199">
        <source>Finds files by tags of the file itself.</source>
        <translation></translation>
    </message>
    <message id="100200">
        <source>Finds audio and video files with chosen tags.</source>
        <translation></translation>
    </message>
    <message id="100201">
        <source>Finds documents with chosen tags.</source>
        <translation></translation>
    </message>
    <message id="100202">
        <source>Finds files with chosen tags of other groups.</source>
        <translation></translation>
    </message>
    <message id="100203">
        <source>Finds a text in the metadata of the selected files.</source>
        <translation></translation>
    </message>
    <message id="100204">
        <source>Finds files that lack tags.</source>
        <translation></translation>
    </message>
    <message id="100206">
        <source>Writes the metadata of the selected files to text files.</source>
        <translation></translation>
    </message>
    <message id="100208">
        <source>Exports the tags of a chosen set.</source>
        <translation></translation>
    </message>
    <message id="100209">
        <source>Makes an export set.</source>
        <translation></translation>
    </message>
    <message id="100210">
        <source>Deletes export sets.</source>
        <translation></translation>
    </message>
    <message id="100211">
        <source>Exports the EXIF tags only.</source>
        <translation></translation>
    </message>
    <message id="100212">
        <source>Exports the IPTC tags only.</source>
        <translation></translation>
    </message>
    <message id="100213">
        <source>Exports the XMP tags only.</source>
        <translation></translation>
    </message>
    <message id="100214">
        <source>Exports the GPS tags only.</source>
        <translation></translation>
    </message>
    <message id="100215">
        <source>Exports the maker notes only.</source>
        <translation></translation>
    </message>
    <message id="100216">
        <source>Writes the embedded pictures to files.</source>
        <translation></translation>
    </message>
    <message id="100217">
        <source>Writes the embedded colour profile to a file.</source>
        <translation></translation>
    </message>
    <message id="100219">
        <source>Takes EXIF tags out of a file.</source>
        <translation></translation>
    </message>
    <message id="100220">
        <source>Takes IPTC tags out of a file.</source>
        <translation></translation>
    </message>
    <message id="100221">
        <source>Takes XMP tags out of a file.</source>
        <translation></translation>
    </message>
    <message id="100222">
        <source>Takes tags out of a CSV without file names.</source>
        <translation></translation>
    </message>
    <message id="100223">
        <source>Takes a colour profile out of a file.</source>
        <translation></translation>
    </message>
    <message id="100226">
        <source>Writes all rights and licensing fields.</source>
        <translation></translation>
    </message>
    <message id="100227">
        <source>Writes the short form of the rights fields.</source>
        <translation></translation>
    </message>
    <message id="100228">
        <source>Runs ExifTool arguments of your own.</source>
        <translation></translation>
    </message>
    <message id="100235">
        <source>Goes to the folder of documents.</source>
        <translation></translation>
    </message>
    <message id="100236">
        <source>Goes to the folder of downloads.</source>
        <translation></translation>
    </message>
    <message id="100237">
        <source>Goes to the folder of music.</source>
        <translation></translation>
    </message>
    <message id="100238">
        <source>Goes to the folder of pictures.</source>
        <translation></translation>
    </message>
    <message id="100239">
        <source>Goes to the folder of videos.</source>
        <translation></translation>
    </message>
    <message id="100240">
        <source>Goes to the home folder.</source>
        <translation></translation>
    </message>
    <message id="100241">
        <source>Goes to the top of all folders.</source>
        <translation></translation>
    </message>
    <message id="100242">
        <source>Goes to the trash.</source>
        <translation></translation>
    </message>
    <message id="100245">
        <source>Opens the selected folder in the list.</source>
        <translation></translation>
    </message>
    <message id="100246">
        <source>Selects nothing.</source>
        <translation></translation>
    </message>
    <message id="100248">
        <source>Reads the folder again.</source>
        <translation></translation>
    </message>
    <message id="100279">
        <source>Chooses the columns of the list.</source>
        <translation></translation>
    </message>
    <message id="100284">
        <source>Tells the version and the licence.</source>
        <translation></translation>
    </message>
    <message id="100298">
        <source>Chooses the lines that stand beside a tile.</source>
        <translation></translation>
    </message>
    <message id="100299">
        <source>Settings of the map.</source>
        <translation></translation>
    </message>
    <message id="100302">
        <source>How the metadata panel looks and what it shows.</source>
        <translation></translation>
    </message>
    <message id="101819">
        <source>Removes tags from the file shown.</source>
        <translation></translation>
    </message>
    <message id="101821">
        <source>Removes a whole group from the file shown.</source>
        <translation></translation>
    </message>
    <message id="101824">
        <source>Adds tags to the file shown.</source>
        <translation></translation>
    </message>
    <message id="105033">
        <source>To the folder shown before.</source>
        <translation></translation>
    </message>
    <message id="105034">
        <source>To the folder shown after this one.</source>
        <translation></translation>
    </message>
    <message id="105035">
        <source>To the folder that holds this one.</source>
        <translation></translation>
    </message>
    <message id="105038">
        <source>Reads a set of columns from a file.</source>
        <translation></translation>
    </message>
    <message id="105039">
        <source>Writes the set of columns to a file.</source>
        <translation></translation>
    </message>
    <message id="105040">
        <source>Shows a check box in front of each item.</source>
        <translation></translation>
    </message>
    <message id="105041">
        <source>Lists the files that a batch operation works on.</source>
        <translation></translation>
    </message>
    <message id="105050">
        <source>A click into a column edits its value.</source>
        <translation></translation>
    </message>
    <message id="108056">
        <source>Reads the tags of the file shown again.</source>
        <translation></translation>
    </message>
    <message id="110004">
        <source>Writes a dump of the file as a web page and opens it.</source>
        <translation></translation>
    </message>
    <message id="110007">
        <source>Writes a dump of the file as text and opens it.</source>
        <translation></translation>
    </message>
    <message id="110012">
        <source>Open file</source>
        <translation></translation>
    </message>
    <message id="110034">
        <source>Writes the tags as text.</source>
        <translation></translation>
    </message>
    <message id="110035">
        <source>Writes the tags as a table for a spreadsheet.</source>
        <translation></translation>
    </message>
    <message id="110036">
        <source>Writes the tags as a table for a browser.</source>
        <translation></translation>
    </message>
    <message id="110037">
        <source>Writes the tags as XML.</source>
        <translation></translation>
    </message>
    <message id="110038">
        <source>Writes the tags to a MIE file, from which they can be copied back.</source>
        <translation></translation>
    </message>
    <message id="110039">
        <source>Writes the tags as a table for a browser, group by group.</source>
        <translation></translation>
    </message>
    <message id="110040">
        <source>Writes the tags as text, with the names that ExifTool uses.</source>
        <translation></translation>
    </message>
    <message id="110041">
        <source>Writes the tags as text, with values as they are stored.</source>
        <translation></translation>
    </message>
    <message id="110042">
        <source>Prints the tags of the file shown.</source>
        <translation></translation>
    </message>
    <message id="110044">
        <source>Removes all metadata from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110062">
        <source>Copies tags out of one file into the selected files.</source>
        <translation></translation>
    </message>
    <message id="110065">
        <source>Copies tags from another file to the selected files.</source>
        <translation></translation>
    </message>
    <message id="110066">
        <source>Removes the EXIF tags from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110067">
        <source>Removes the IPTC tags from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110068">
        <source>Removes the XMP tags from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110069">
        <source>Removes the colour profile from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110071">
        <source>Removes the position from the selected files.</source>
        <translation></translation>
    </message>
    <message id="110072">
        <source>Removes all metadata from the selected files.</source>
        <translation></translation>
    </message>
    <message id="130001">
        <source>Opens the web site of the program in the browser.</source>
        <translation></translation>
    </message>
    <message id="140013">
        <source>Asks for the program that opens the selected file.</source>
        <translation></translation>
    </message>
    <message id="140014">
        <source>Opens a public map service at the position of the file.</source>
        <translation></translation>
    </message>
    <message id="140063">
        <source>Copies the selected items to the clipboard.</source>
        <translation></translation>
    </message>
    <message id="140064">
        <source>Changes the name of the selected item.</source>
        <translation></translation>
    </message>
    <message id="140065">
        <source>Shows the properties of the selected items.</source>
        <translation></translation>
    </message>
    <message id="140071">
        <source>Puts the files of the clipboard into this folder.</source>
        <translation></translation>
    </message>
    <message id="140072">
        <source>Copies the selected items to a folder.</source>
        <translation></translation>
    </message>
    <message id="140073">
        <source>Moves the selected items to a folder.</source>
        <translation></translation>
    </message>
    <message id="140074">
        <source>Selects everything in the list.</source>
        <translation></translation>
    </message>
    <message id="140075">
        <source>Selects what is not selected, and the other way round.</source>
        <translation></translation>
    </message>
    <message id="140089">
        <source>The smallest or oldest comes first.</source>
        <translation></translation>
    </message>
    <message id="140090">
        <source>The largest or newest comes first.</source>
        <translation></translation>
    </message>
    <message id="140091">
        <source>Cuts the selected items for the clipboard.</source>
        <translation></translation>
    </message>
    <message id="140092">
        <source>Saves the settings and closes the program.</source>
        <translation></translation>
    </message>
    <message id="140093">
        <source>Takes the last file operation back.</source>
        <translation></translation>
    </message>
    <message id="140106">
        <source>Shows files and folders that are hidden.</source>
        <translation></translation>
    </message>
    <message id="140110">
        <source>Saves the settings and starts the program again.</source>
        <translation></translation>
    </message>
    <message id="150001">
        <source>Sorts the list by name.</source>
        <translation></translation>
    </message>
    <message id="150002">
        <source>Sorts the list by date modified.</source>
        <translation></translation>
    </message>
    <message id="150003">
        <source>Sorts the list by size.</source>
        <translation></translation>
    </message>
    <message id="150004">
        <source>Sorts the list by type.</source>
        <translation></translation>
    </message>
    <message id="150005">
        <source>Sorts the list by total size.</source>
        <translation></translation>
    </message>
    <message id="150006">
        <source>Sorts the list by free space.</source>
        <translation></translation>
    </message>
    <message id="150007">
        <source>Sorts the list by comments.</source>
        <translation></translation>
    </message>
    <message id="150008">
        <source>Sorts the list by date deleted.</source>
        <translation></translation>
    </message>
    <message id="150009">
        <source>Sorts the list by original location.</source>
        <translation></translation>
    </message>
    <message id="150010">
        <source>Sorts the list by attributes.</source>
        <translation></translation>
    </message>
    <message id="150011">
        <source>Sorts the list by size on disk.</source>
        <translation></translation>
    </message>
    <message id="150012">
        <source>Sorts the list by owner.</source>
        <translation></translation>
    </message>
    <message id="150013">
        <source>Sorts the list by rating.</source>
        <translation></translation>
    </message>
    <message id="150014">
        <source>Sorts the list by product name.</source>
        <translation></translation>
    </message>
    <message id="150015">
        <source>Sorts the list by company.</source>
        <translation></translation>
    </message>
    <message id="150016">
        <source>Sorts the list by file description.</source>
        <translation></translation>
    </message>
    <message id="150017">
        <source>Sorts the list by file version.</source>
        <translation></translation>
    </message>
    <message id="150018">
        <source>Sorts the list by product version.</source>
        <translation></translation>
    </message>
    <message id="150021">
        <source>Sorts the list by extension.</source>
        <translation></translation>
    </message>
    <message id="150022">
        <source>Sorts the list by date created.</source>
        <translation></translation>
    </message>
    <message id="150023">
        <source>Sorts the list by date accessed.</source>
        <translation></translation>
    </message>
    <message id="150024">
        <source>Sorts the list by title.</source>
        <translation></translation>
    </message>
    <message id="150025">
        <source>Sorts the list by subject.</source>
        <translation></translation>
    </message>
    <message id="150026">
        <source>Sorts the list by authors.</source>
        <translation></translation>
    </message>
    <message id="150027">
        <source>Sorts the list by keywords.</source>
        <translation></translation>
    </message>
    <message id="150029">
        <source>Sorts the list by camera model.</source>
        <translation></translation>
    </message>
    <message id="150030">
        <source>Sorts the list by date taken.</source>
        <translation></translation>
    </message>
    <message id="150031">
        <source>Sorts the list by width.</source>
        <translation></translation>
    </message>
    <message id="150032">
        <source>Sorts the list by height.</source>
        <translation></translation>
    </message>
    <message id="150033">
        <source>Sorts the list by virtual comments.</source>
        <translation></translation>
    </message>
    <message id="150035">
        <source>Sorts the list by bit rate.</source>
        <translation></translation>
    </message>
    <message id="150036">
        <source>Sorts the list by copyright.</source>
        <translation></translation>
    </message>
    <message id="150037">
        <source>Sorts the list by duration.</source>
        <translation></translation>
    </message>
    <message id="150038">
        <source>Sorts the list by protected.</source>
        <translation></translation>
    </message>
    <message id="150039">
        <source>Sorts the list by rating of the medium.</source>
        <translation></translation>
    </message>
    <message id="150040">
        <source>Sorts the list by album artist.</source>
        <translation></translation>
    </message>
    <message id="150041">
        <source>Sorts the list by album.</source>
        <translation></translation>
    </message>
    <message id="150042">
        <source>Sorts the list by beats per minute.</source>
        <translation></translation>
    </message>
    <message id="150043">
        <source>Sorts the list by composer.</source>
        <translation></translation>
    </message>
    <message id="150044">
        <source>Sorts the list by conductor.</source>
        <translation></translation>
    </message>
    <message id="150045">
        <source>Sorts the list by director.</source>
        <translation></translation>
    </message>
    <message id="150046">
        <source>Sorts the list by genre.</source>
        <translation></translation>
    </message>
    <message id="150047">
        <source>Sorts the list by language.</source>
        <translation></translation>
    </message>
    <message id="150048">
        <source>Sorts the list by broadcast date.</source>
        <translation></translation>
    </message>
    <message id="150049">
        <source>Sorts the list by channel.</source>
        <translation></translation>
    </message>
    <message id="150050">
        <source>Sorts the list by station name.</source>
        <translation></translation>
    </message>
    <message id="150051">
        <source>Sorts the list by mood.</source>
        <translation></translation>
    </message>
    <message id="150052">
        <source>Sorts the list by parental rating.</source>
        <translation></translation>
    </message>
    <message id="150053">
        <source>Sorts the list by reason for the parental rating.</source>
        <translation></translation>
    </message>
    <message id="150054">
        <source>Sorts the list by period.</source>
        <translation></translation>
    </message>
    <message id="150055">
        <source>Sorts the list by producer.</source>
        <translation></translation>
    </message>
    <message id="150056">
        <source>Sorts the list by publisher.</source>
        <translation></translation>
    </message>
    <message id="150057">
        <source>Sorts the list by writer.</source>
        <translation></translation>
    </message>
    <message id="150058">
        <source>Sorts the list by year.</source>
        <translation></translation>
    </message>
    <message id="150059">
        <source>Sorts the list by kind.</source>
        <translation></translation>
    </message>
    <message id="150101">
        <source>Groups the list by name.</source>
        <translation></translation>
    </message>
    <message id="150102">
        <source>Groups the list by date modified.</source>
        <translation></translation>
    </message>
    <message id="150103">
        <source>Groups the list by size.</source>
        <translation></translation>
    </message>
    <message id="150104">
        <source>Groups the list by type.</source>
        <translation></translation>
    </message>
    <message id="150105">
        <source>Groups the list by total size.</source>
        <translation></translation>
    </message>
    <message id="150106">
        <source>Groups the list by free space.</source>
        <translation></translation>
    </message>
    <message id="150107">
        <source>Groups the list by comments.</source>
        <translation></translation>
    </message>
    <message id="150108">
        <source>Groups the list by date deleted.</source>
        <translation></translation>
    </message>
    <message id="150109">
        <source>Groups the list by original location.</source>
        <translation></translation>
    </message>
    <message id="150110">
        <source>Groups the list by attributes.</source>
        <translation></translation>
    </message>
    <message id="150111">
        <source>Groups the list by size on disk.</source>
        <translation></translation>
    </message>
    <message id="150112">
        <source>Groups the list by owner.</source>
        <translation></translation>
    </message>
    <message id="150113">
        <source>Groups the list by rating.</source>
        <translation></translation>
    </message>
    <message id="150114">
        <source>Groups the list by product name.</source>
        <translation></translation>
    </message>
    <message id="150115">
        <source>Groups the list by company.</source>
        <translation></translation>
    </message>
    <message id="150116">
        <source>Groups the list by file description.</source>
        <translation></translation>
    </message>
    <message id="150117">
        <source>Groups the list by file version.</source>
        <translation></translation>
    </message>
    <message id="150118">
        <source>Groups the list by product version.</source>
        <translation></translation>
    </message>
    <message id="150121">
        <source>Groups the list by extension.</source>
        <translation></translation>
    </message>
    <message id="150122">
        <source>Groups the list by date created.</source>
        <translation></translation>
    </message>
    <message id="150123">
        <source>Groups the list by date accessed.</source>
        <translation></translation>
    </message>
    <message id="150124">
        <source>Groups the list by title.</source>
        <translation></translation>
    </message>
    <message id="150125">
        <source>Groups the list by subject.</source>
        <translation></translation>
    </message>
    <message id="150126">
        <source>Groups the list by authors.</source>
        <translation></translation>
    </message>
    <message id="150127">
        <source>Groups the list by keywords.</source>
        <translation></translation>
    </message>
    <message id="150129">
        <source>Groups the list by camera model.</source>
        <translation></translation>
    </message>
    <message id="150130">
        <source>Groups the list by date taken.</source>
        <translation></translation>
    </message>
    <message id="150131">
        <source>Groups the list by width.</source>
        <translation></translation>
    </message>
    <message id="150132">
        <source>Groups the list by height.</source>
        <translation></translation>
    </message>
    <message id="150133">
        <source>Groups the list by virtual comments.</source>
        <translation></translation>
    </message>
    <message id="150135">
        <source>Groups the list by bit rate.</source>
        <translation></translation>
    </message>
    <message id="150136">
        <source>Groups the list by copyright.</source>
        <translation></translation>
    </message>
    <message id="150137">
        <source>Groups the list by duration.</source>
        <translation></translation>
    </message>
    <message id="150138">
        <source>Groups the list by protected.</source>
        <translation></translation>
    </message>
    <message id="150139">
        <source>Groups the list by rating of the medium.</source>
        <translation></translation>
    </message>
    <message id="150140">
        <source>Groups the list by album artist.</source>
        <translation></translation>
    </message>
    <message id="150141">
        <source>Groups the list by album.</source>
        <translation></translation>
    </message>
    <message id="150142">
        <source>Groups the list by beats per minute.</source>
        <translation></translation>
    </message>
    <message id="150143">
        <source>Groups the list by composer.</source>
        <translation></translation>
    </message>
    <message id="150144">
        <source>Groups the list by conductor.</source>
        <translation></translation>
    </message>
    <message id="150145">
        <source>Groups the list by director.</source>
        <translation></translation>
    </message>
    <message id="150146">
        <source>Groups the list by genre.</source>
        <translation></translation>
    </message>
    <message id="150147">
        <source>Groups the list by language.</source>
        <translation></translation>
    </message>
    <message id="150148">
        <source>Groups the list by broadcast date.</source>
        <translation></translation>
    </message>
    <message id="150149">
        <source>Groups the list by channel.</source>
        <translation></translation>
    </message>
    <message id="150150">
        <source>Groups the list by station name.</source>
        <translation></translation>
    </message>
    <message id="150151">
        <source>Groups the list by mood.</source>
        <translation></translation>
    </message>
    <message id="150152">
        <source>Groups the list by parental rating.</source>
        <translation></translation>
    </message>
    <message id="150153">
        <source>Groups the list by reason for the parental rating.</source>
        <translation></translation>
    </message>
    <message id="150154">
        <source>Groups the list by period.</source>
        <translation></translation>
    </message>
    <message id="150155">
        <source>Groups the list by producer.</source>
        <translation></translation>
    </message>
    <message id="150156">
        <source>Groups the list by publisher.</source>
        <translation></translation>
    </message>
    <message id="150157">
        <source>Groups the list by writer.</source>
        <translation></translation>
    </message>
    <message id="150158">
        <source>Groups the list by year.</source>
        <translation></translation>
    </message>
    <message id="150159">
        <source>Groups the list by kind.</source>
        <translation></translation>
    </message>
    <message id="170166">
        <source>Adds keywords to the selected files.</source>
        <translation></translation>
    </message>
    <message id="170167">
        <source>Adds keywords out of text files.</source>
        <translation></translation>
    </message>
    <message id="170168">
        <source>Removes the keywords.</source>
        <translation></translation>
    </message>
    <message id="170234">
        <source>Goes to the desktop.</source>
        <translation></translation>
    </message>
    <message id="170250">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170251">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170252">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170253">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170254">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170255">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170256">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170257">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170258">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170259">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170260">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170261">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170262">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170263">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170264">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170265">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170266">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170267">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170268">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170269">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170270">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170271">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170272">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170273">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170274">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170275">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170276">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170277">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170278">
        <source>Marks rows of the panel with this colour.</source>
        <translation></translation>
    </message>
    <message id="170304">
        <source>Where ExifTool is and how it works.</source>
        <translation></translation>
    </message>
    <message id="170305">
        <source>Where FFmpeg is.</source>
        <translation></translation>
    </message>
    <message id="170306">
        <source>Where ImageMagick is.</source>
        <translation></translation>
    </message>
    <message id="170307">
        <source>Chooses the look and its tones.</source>
        <translation></translation>
    </message>
    <message id="172000">
        <source>A double click on a tab does the same.</source>
        <translation></translation>
    </message>
    <message id="172301">
        <source>Puts the files in another order.</source>
        <translation></translation>
    </message>
    <message id="172302">
        <source>Shows the files in groups.</source>
        <translation></translation>
    </message>
    <message id="172303">
        <source>Adds EXIF tags to the selected files.</source>
        <translation></translation>
    </message>
    <message id="172304">
        <source>Adds IPTC tags to the selected files.</source>
        <translation></translation>
    </message>
    <message id="172305">
        <source>Adds XMP tags to the selected files.</source>
        <translation></translation>
    </message>
    <message id="172313">
        <source>Removes a family of tags from the selected files.</source>
        <translation></translation>
    </message>
    <message id="172317">
        <source>Writes the tags of the file shown to a file beside it.</source>
        <translation></translation>
    </message>
    <message id="172318">
        <source>Chooses the colour of marked rows.</source>
        <translation></translation>
    </message>
    <message id="210012">
        <source>Opens the selected file in its program.</source>
        <translation></translation>
    </message>
</context>
</TS>
