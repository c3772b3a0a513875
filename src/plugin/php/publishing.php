<?php

/**
 * Publishes a name, or gives a published name a new key and address.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_save( $request ) {
	$alias   = strtolower( brasslet_param( $request, 'alias' ) );
	$pubkey  = strtolower( brasslet_param( $request, 'pubkey' ) );
	$address = brasslet_param( $request, 'address' );
	$house   = strtolower( brasslet_param( $request, 'house' ) );
	if ( 1 !== preg_match( BRASSLET_ALIAS_RULE, $alias )
		|| 1 !== preg_match( BRASSLET_PUBKEY_RULE, $pubkey )
		|| 1 !== preg_match( BRASSLET_ADDRESS_RULE, $address ) ) {
		return brasslet_error( 'brasslet_bad', 'That name is not usable.', 400 );
	}
	if ( 1 !== preg_match( BRASSLET_HOUSE_RULE, $house ) ) {
		$house = '';
	}
	$row  = array(
		'alias'   => $alias,
		'pubkey'  => $pubkey,
		'address' => $address,
		'house'   => $house,
	);
	$rows = brasslet_change(
		function ( $rows ) use ( $row ) {
			$rows[ $row['alias'] ] = $row;
			return $rows;
		}
	);
	if ( is_wp_error( $rows ) ) {
		return $rows;
	}
	return array(
		'ok'      => true,
		'paymail' => brasslet_handle( $row ),
		'host'    => brasslet_host(),
		'aliases' => array_column( $rows, 'alias' ),
	);
}

/**
 * Removes a name. One that is not there is as good as removed.
 *
 * @param WP_REST_Request $request The request.
 * @return array|WP_Error
 */
function brasslet_remove( $request ) {
	$alias = strtolower( brasslet_param( $request, 'alias' ) );
	if ( 1 !== preg_match( BRASSLET_ALIAS_RULE, $alias ) ) {
		return brasslet_error( 'brasslet_bad', 'Type the name to remove.', 400 );
	}
	$rows = brasslet_change(
		function ( $rows ) use ( $alias ) {
			unset( $rows[ $alias ] );
			return $rows;
		}
	);
	if ( is_wp_error( $rows ) ) {
		return $rows;
	}
	return array(
		'ok'      => true,
		'aliases' => array_column( $rows, 'alias' ),
	);
}
