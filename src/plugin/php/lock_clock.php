<?php

/**
 * The time by a clock that nobody sets.
 *
 * @return float Seconds.
 */
function brasslet_seconds() {
	return hrtime( true ) / 1e9;
}

/**
 * Waits for a moment, of a length that keeps those who wait from doing so in step.
 */
function brasslet_pause() {
	usleep( random_int( 10000, 60000 ) );
}
