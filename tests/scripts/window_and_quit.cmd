# The window: minimising holds the round clock, restoring lets it go on, a size
# below the least is put back; then closing the selector ends the program.
advance 250
get frmSelect.imgSplashImage(0).Picture
get frmSelect.imgSplashImage(1).Picture
click frmSelect.cmdTierfall
get frmTierfall.Width
get frmTierfall.Height
click frmTierfall.cmdPlay
# The enhanced clock waits for a combination; a pause and resume start it too.
click frmTierfall.cmdPause
click frmTierfall.cmdPause
advance 3000
get frmTierfall.lblTime.Caption

echo -- minimised: no ticks, and no clicks
minimize frmTierfall
get frmTierfall.WindowState
advance 10000
get frmTierfall.lblTime.Caption
get ElapsedSeconds
click frmTierfall.cmdPause
restore frmTierfall
get frmTierfall.WindowState
advance 2000
get frmTierfall.lblTime.Caption

echo -- too small a window goes back to the least size
resize frmTierfall 3000 2000
get frmTierfall.Width
get frmTierfall.Height
resize frmTierfall 12000 9000
get frmTierfall.Width
get frmTierfall.Height
get frmTierfall.cmdPlay.Visible
get frmTierfall.lblTime.Caption

echo -- leave the game, then close the selector
answer Yes
close frmTierfall
log
close frmSelect
get AppTitle
