10 PLAY "C",,"E"
