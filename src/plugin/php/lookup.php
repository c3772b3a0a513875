<?php

/**
 * Answers the paymail capability "pki": the public key of a name.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_pki( $request ) {
	$row = brasslet_row_for( $request );
	if ( is_wp_error( $row ) ) {
		return $row;
	}
	return array(
		'bsvalias' => '1.0',
		'handle'   => brasslet_handle( $row ),
		'pubkey'   => $row['pubkey'],
	);
}

/**
 * Answers the paymail capability "paymentDestination": the address that pays a name.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_pay( $request ) {
	$row = brasslet_row_for( $request );
	if ( is_wp_error( $row ) ) {
		return $row;
	}
	$reply = array( 'address' => $row['address'] );
	if ( brasslet_asks_for_script( $request ) ) {
		$script = brasslet_script( $row['address'] );
		if ( '' !== $script ) {
			$reply['output'] = $script;
		}
	}
	return $reply;
}

/**
 * Says whether a request for a payment destination is one of the bsvalias documents.
 *
 * Those have the time as a text in the member "dt" of their JSON body, and want a script. The desktop program sends a
 * number and reads the address; so may older clients, which get the reply that they have always got. Whether a
 * sender's clock is right is no business of a host that only tells an address.
 *
 * @param WP_REST_Request $request The request.
 * @return bool
 */
function brasslet_asks_for_script( $request ) {
	$time = brasslet_string( brasslet_json( $request )['dt'] ?? '' );
	return 'POST' === $request->get_method()
		&& 1 === preg_match( BRASSLET_TIME_RULE, $time, $part )
		&& checkdate( (int) $part[2], (int) $part[3], (int) $part[1] );
}

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

/**
 * Finds the row of the alias in the route.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error The row, or the refusal.
 */
function brasslet_row_for( $request ) {
	// Not get_param(): a payer's JSON body or query may hold an "alias" of its own, and must not choose who is paid.
	$route = $request->get_url_params();
	$alias = strtolower( rawurldecode( brasslet_string( $route['alias'] ?? '' ) ) );
	$rows  = brasslet_rows();
	return $rows[ $alias ] ?? brasslet_error( 'brasslet_miss', 'No paymail.', 404 );
}
