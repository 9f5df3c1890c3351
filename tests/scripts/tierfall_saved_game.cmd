# A game saved and opened again through the Game menu: the dialogs' lists, Enter in
# the name box, a double click on a file, and the replay of the saved deal.
click frmSelect.cmdTierfall
get frmTierfall.mnuSave.Enabled
click frmTierfall.cmdPlay
get frmTierfall.mnuSave.Enabled
get frmTierfall.mnuOpen.Enabled
get frmTierfall.FieldCardPicture(0).Picture
get frmTierfall.FieldCardPicture(21).Picture
get Round1Deck(22)
click frmTierfall.cmdTakeScore
click frmTierfall.cmdTakeScore
get LastScore
get frmTierfall.mnuSave.Enabled
log

echo -- saved under a name without its extension
click frmTierfall.mnuSave
get frmSave.Caption
get frmSave.txtGameName.Text
get frmSave.txtUserName.Text
type frmSave.txtGameName evening
type frmSave.txtUserName Ada Lind
click frmSave.cmdOK
log

echo -- the same name again: No keeps the dialog, Cancel leaves it
click frmTierfall.mnuSave
get frmSave.File1.ListCount
get frmSave.File1.List(0)
type frmSave.txtGameName evening
answer No
click frmSave.cmdOK
get frmSave.Visible
click frmSave.cmdCancel
log

echo -- opened again: Enter narrows the list, a double click opens the file
click frmTierfall.mnu13
get CardGoal
click frmTierfall.mnuOpen
get frmOpen.Caption
type frmOpen.txtGameName morning*
enter frmOpen.txtGameName
get frmOpen.File1.ListCount
type frmOpen.txtGameName *.tfl
enter frmOpen.txtGameName
get frmOpen.File1.ListCount
get frmOpen.File1.List(0)
select frmOpen.File1 0
get frmOpen.txtGameName.Text
answer OK
dblclick frmOpen.File1
log
get CardGoal
get GameInProgress
get frmTierfall.mnu11.Checked
get GameInProgress
get ReplayRequested
get frmTierfall.cmdPlay.Caption
get frmTierfall.FieldCardPicture(0).Picture
get frmTierfall.FieldCardPicture(21).Picture

echo -- a file that is no saved game: the message, and nothing changes
answer Yes
click frmTierfall.cmdPlay
click frmTierfall.mnuOpen
type frmOpen.txtGameName Tierfall.Ini
answer OK
click frmOpen.cmdOK
get frmOpen.Visible
click frmOpen.cmdCancel
log
get CardGoal
get GameInProgress
