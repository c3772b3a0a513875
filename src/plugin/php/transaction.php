<?php

/*
 * No more satoshis than this are ever there: 21 million coins.
 */
define( 'BRASSLET_MOST_SATOSHIS', 2100000000000000 );

/*
 * The longest transaction that is taken, in bytes. Payments of wallets have some hundreds.
 */
define( 'BRASSLET_LONGEST_TRANSACTION', 100000 );

/**
 * Parses a transaction from its first byte to its last.
 *
 * @param string $bytes The transaction.
 * @return array[]|null Its outputs, each with "satoshis" and "script" (bytes). Null when it is no transaction, or one
 *                      that no node would take: without inputs or outputs, with lengths that are not in their shortest
 *                      form, or with more satoshis than there are.
 */
function brasslet_outputs_in( $bytes ) {
	if ( strlen( $bytes ) > BRASSLET_LONGEST_TRANSACTION ) {
		return null;
	}
	// After the version.
	$at      = 4;
	$outputs = brasslet_skip_inputs( $bytes, $at ) ? brasslet_read_outputs( $bytes, $at ) : null;
	// Before the lock time.
	return strlen( $bytes ) === $at + 4 ? $outputs : null;
}

/**
 * Passes over the inputs: each is an outpoint of 36 bytes, a script and 4 bytes of sequence.
 *
 * @param string $bytes The transaction.
 * @param int    $at    Where their number stands; then, where the last one ends.
 * @return bool Whether there are any, and all are whole.
 */
function brasslet_skip_inputs( $bytes, &$at ) {
	$count = (int) brasslet_read_count( $bytes, $at, 41 );
	for ( $left = $count; $left > 0; $left-- ) {
		$at += 36;
		if ( null === brasslet_read_script( $bytes, $at ) ) {
			return false;
		}
		$at += 4;
	}
	return $count > 0;
}

/**
 * Reads the outputs: each is an amount of 8 bytes and a script.
 *
 * @param string $bytes The transaction.
 * @param int    $at    Where their number stands; then, where the last one ends.
 * @return array[]|null The outputs; null when there are none, or one of them is not whole or too much.
 */
function brasslet_read_outputs( $bytes, &$at ) {
	$outputs = array();
	$sum     = 0;
	for ( $left = (int) brasslet_read_count( $bytes, $at, 9 ); $left > 0; $left-- ) {
		$amount = str_pad( substr( $bytes, $at, 8 ), 8, "\xff" );
		$amount = unpack( 'P', $amount )[1];
		$at    += 8;
		$script = brasslet_read_script( $bytes, $at );
		// PHP reads the highest bit as a sign.
		if ( null === $script || $amount < 0 || $amount > BRASSLET_MOST_SATOSHIS - $sum ) {
			return null;
		}
		$sum      += $amount;
		$outputs[] = array(
			'satoshis' => $amount,
			'script'   => $script,
		);
	}
	return count( $outputs ) > 0 ? $outputs : null;
}

/**
 * Reads a script with its length before it.
 *
 * @param string $bytes The transaction.
 * @param int    $at    Where the length begins; then, where the script ends.
 * @return string|null The script, or null when there are not so many bytes.
 */
function brasslet_read_script( $bytes, &$at ) {
	$length = brasslet_read_count( $bytes, $at, 1 );
	if ( null === $length ) {
		return null;
	}
	$script = (string) substr( $bytes, $at, $length );
	$at    += $length;
	return $script;
}

/**
 * Reads a number of the variable length that transactions count with, lowest byte first.
 *
 * @param string $bytes The transaction.
 * @param int    $at    Where the number begins; then, where it ends.
 * @param int    $size  How many bytes each of what is counted takes at the least.
 * @return int|null The number; null when it is not in its shortest form, or counts more than the bytes have room for.
 */
function brasslet_read_count( $bytes, &$at, $size ) {
	$left = strlen( $bytes ) - $at;
	if ( $left < 1 ) {
		return null;
	}
	$number = ord( $bytes[ $at ] );
	$length = 1;
	if ( $number >= 0xfd ) {
		$length = array( 3, 5, 9 )[ $number - 0xfd ];
		if ( $left < $length ) {
			return null;
		}
		$least  = array( 0xfd, 0x10000, 0x100000000 )[ $number - 0xfd ];
		$number = unpack( 'P', str_pad( substr( $bytes, $at + 1, $length - 1 ), 8, "\0" ) )[1];
		if ( $number < $least ) {
			return null;
		}
	}
	if ( $number > intdiv( $left - $length, $size ) ) {
		return null;
	}
	$at += $length;
	return $number;
}

/**
 * The transaction id: the bytes, hashed twice by SHA-256 and written backwards in hex.
 *
 * @param string $bytes The transaction.
 * @return string
 */
function brasslet_txid( $bytes ) {
	return bin2hex( strrev( hash( 'sha256', hash( 'sha256', $bytes, true ), true ) ) );
}
