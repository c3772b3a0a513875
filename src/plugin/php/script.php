<?php

define( 'BRASSLET_BASE58', '123456789ABCDEFGHJKLMNPQRSTUVWXYZabcdefghijkmnopqrstuvwxyz' );

/**
 * Makes the script that pays an address (P2PKH): its Base58Check payload between the fixed opcodes.
 *
 * Counts in bytes alone: many hosts have no extension for large numbers.
 *
 * @param string $address The address.
 * @return string Lower-case hex; empty when it is no address of version 0 with a right checksum.
 */
function brasslet_script( $address ) {
	if ( 1 !== preg_match( BRASSLET_ADDRESS_RULE, $address ) ) {
		return '';
	}
	// The number that the address writes in base 58, in base 256 with the lowest byte first.
	$bytes = array();
	foreach ( str_split( $address ) as $digit ) {
		$carry = strpos( BRASSLET_BASE58, $digit );
		foreach ( $bytes as $i => $byte ) {
			$carry      += 58 * $byte;
			$bytes[ $i ] = $carry % 256;
			$carry       = intdiv( $carry, 256 );
		}
		if ( $carry > 0 ) {
			$bytes[] = $carry;
		}
	}
	// Every leading "1" is a byte of zero, and the rule asks for one: so the version is 0.
	$binary  = str_repeat( "\0", strspn( $address, '1' ) ) . strrev( implode( '', array_map( 'chr', $bytes ) ) );
	$payload = substr( $binary, 0, -4 );
	$check   = substr( hash( 'sha256', hash( 'sha256', $payload, true ), true ), 0, 4 );
	if ( 25 !== strlen( $binary ) || substr( $binary, -4 ) !== $check ) {
		return '';
	}
	return '76a914' . bin2hex( substr( $payload, 1 ) ) . '88ac';
}
