10 PLAY "","D"
