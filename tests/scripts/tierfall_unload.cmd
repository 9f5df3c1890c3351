# Leaving Tierfall: the unload questions answered No and Yes, before a game,
# during one (it pauses while it asks) and after a long stay.
click frmSelect.cmdTierfall
log

echo -- before a game: No keeps the form
answer No
close frmTierfall
log
get frmTierfall.Visible
get frmSelect.Visible

echo -- during a game the round pauses while it asks; No resumes it
click frmTierfall.cmdPlay
advance 10000
get frmTierfall.lblTime.Caption
watch frmTierfall.lblMessage.Caption
watch frmTierfall.cmdPause.Caption
answer No
close frmTierfall
log
get GameInProgress
get frmTierfall.cmdExit.Enabled
advance 5000
get frmTierfall.lblTime.Caption

echo -- End Game asks too: No goes on, Yes ends the game without a score
answer No
click frmTierfall.cmdPlay
get GameInProgress
answer Yes
click frmTierfall.cmdPlay
log
get GameInProgress
get frmTierfall.cmdPlay.Caption
get frmTierfall.cmdPause.Enabled
get frmTierfall.frmSplash.Visible
get frmTierfall.lblTime.Caption
advance 5000
get frmTierfall.lblTime.Caption

echo -- paused by the player, the game stays paused after No
click frmTierfall.cmdPlay
advance 3000
click frmTierfall.cmdPause
click frmTierfall.cmdExit
answer No
close frmTierfall
log
get frmTierfall.lblMessage.Caption
get frmTierfall.cmdPause.Caption
advance 5000
get frmTierfall.lblTime.Caption
click frmTierfall.cmdPause
advance 1000
get frmTierfall.lblTime.Caption

echo -- with a game on, Yes leaves and the selector comes back
answer Yes
click frmTierfall.mnuExit
log
get GameInProgress
get frmSelect.Visible
get frmTierfall.Caption
unwatch

echo -- five minute marks passed since the form loaded change the question
click frmSelect.cmdTierfall
get GamesPlayedCount
get FormLoadTime
advance 240000
answer No
click frmTierfall.cmdExit
advance 31000
answer No
click frmTierfall.cmdExit
answer Yes
click frmTierfall.cmdExit
log
