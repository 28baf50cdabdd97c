<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
  <name>Kalvora</name>
  <message>
    <source>Show in Finder</source>
    <translation>Show in File Manager</translation>
  </message>
  <message>
    <source>You seem to be enjoying using Kalvora! If you like Kalvora, please, rate it on the AppStore.</source>
    <translation>You seem to be enjoying using Kalvora! If you like Kalvora, please rate it in the software center.</translation>
  </message>
  <message>
    <source>Include stereo track aside surround track when possible</source>
    <translation>Include stereo track beside surround track when possible</translation>
  </message>
  <message>
    <source>All of the conversions will be cancelled.</source>
    <translation>All conversions will be stopped.</translation>
  </message>
  <message>
    <source>The conversion of '%@' is still in progress. Do you wish to cancel?</source>
    <translation>The conversion of '%@' is still in progress. Do you want to stop it?</translation>
  </message>
  <message>
    <source>%@ conversions are still in progress. Do you wish to stop them?</source>
    <translation>%@ conversions are still in progress. Do you want to stop them?</translation>
  </message>
  <message>
    <source>Canceling this conversion will result in losing all progress so far.</source>
    <translation>All progress so far will be lost.</translation>
  </message>
  <message>
    <source>This audio file seems to be corrupted. Do you wish to fix it?</source>
    <translation>This audio file seems to be damaged. Do you want to repair it?</translation>
  </message>
  <message>
    <source>The original file will be untouched - a copy will be created.</source>
    <translation>The original file stays as it is; a repaired copy is created.</translation>
  </message>
  <message>
    <source>Please, select a destination for converting %@s:</source>
    <translation>Please select a folder for the converted files (%@):</translation>
  </message>
  <message>
    <source>Please, select a destination for conversion:</source>
    <translation>Please select a folder for the converted file:</translation>
  </message>
  <message>
    <source>Press cancel in the following open dialog to be asked for destination for each conversion.</source>
    <translation>Press Cancel in the next dialog to be asked for a folder for each conversion.</translation>
  </message>
  <message>
    <source>Kalvora will ask you for a destination for each conversion.</source>
    <translation>Kalvora will ask you for a folder for each conversion.</translation>
  </message>
  <message>
    <source>File '%@' has more than one audio track. Please select the one you wish to convert.</source>
    <translation>The file '%@' has more than one audio track. Please select the one that you want to convert.</translation>
  </message>
  <message>
    <source>File %@ has been successfully converted.</source>
    <translation>The file %@ has been converted.</translation>
  </message>
  <message>
    <source>Files %@ have been successfully stitched.</source>
    <translation>The files %@ have been joined.</translation>
  </message>
  <message>
    <source>Conversion for file %@ has failed.</source>
    <translation>The conversion of the file %@ has failed.</translation>
  </message>
  <message>
    <source>Stitching files %@ has failed.</source>
    <translation>The files %@ could not be joined.</translation>
  </message>
  <message>
    <source>File type is blacklisted by a file extension filter.</source>
    <translation>Files with this extension are not converted.</translation>
  </message>
  <message>
    <source>This is no regular file.</source>
    <translation>This is not a regular file.</translation>
  </message>
  <message>
    <source>%@. What comes behind it is left out.</source>
    <translation>%@. The rest of the folder was skipped.</translation>
  </message>
  <message>
    <source>There is a file of that name already.</source>
    <translation>A file with this name already exists.</translation>
  </message>
  <message>
    <source>There is no more space left on your hard drive.</source>
    <translation>There is no space left on the disk.</translation>
  </message>
  <message>
    <source>The file to be converted cannot be found. Please make sure that you haven't moved or renamed the files or enclosing folders before the conversion started.</source>
    <translation>The file to be converted cannot be found. Please make sure that the file and its folders have not been moved or renamed.</translation>
  </message>
  <message>
    <source>Re-add the files into the queue and start the conversion again. Renaming or moving the file before the conversion starts is currently not supported.</source>
    <translation>Add the file to the queue again and start the conversion. A file must not be renamed or moved before its conversion starts.</translation>
  </message>
  <message>
    <source>The file does not tell the size of its picture.</source>
    <translation>The video's frame size is missing.</translation>
  </message>
  <message>
    <source>A track of the file holds nothing that can be decoded.</source>
    <translation>One track contains no data that can be decoded.</translation>
  </message>
  <message>
    <source>The file is damaged, or it is no media file.</source>
    <translation>The file is damaged, or it is not a media file.</translation>
  </message>
  <message>
    <source>The preset can make nothing of this file.</source>
    <translation>The preset cannot convert this file.</translation>
  </message>
  <message>
    <source>The subtitles file is in no format that can be read.</source>
    <translation>The format of the subtitles file is unknown.</translation>
  </message>
  <message>
    <source>The disc could not be written to its end.</source>
    <translation>The disc could not be written completely.</translation>
  </message>
  <message>
    <source>There is no film that can be put on the disc.</source>
    <translation>No film can be put on the disc.</translation>
  </message>
  <message>
    <source>Allows scaling up</source>
    <translation>Allow scaling up</translation>
  </message>
  <message>
    <source>Uses unsigned integers</source>
    <translation>Use unsigned integers</translation>
  </message>
  <message>
    <source>Enter DVD name.</source>
    <translation>Enter a name for the DVD.</translation>
  </message>
  <message>
    <source>Preview image. Interact for menu.</source>
    <translation>Preview image. Activate it for the menu.</translation>
  </message>
  <message>
    <source>This preset  changes the video's container and transcodes audio.

Current format selected: %@ %@</source>
    <translation>This preset changes the video's container and transcodes audio.

Current format selected: %@ %@</translation>
  </message>
</context>
</TS>
